// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/CAppendMenu.h"

#include "layout/api/access/ITypeLookup.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/data/CRecentCabinets.h"
#include "layout/settings/CCustomCabinet.h"
#include "layout/settings/TypeMenu.h"
#include "platform/widgets/CMessageBox.h"

#include <QMenu>

namespace {

QString sizedText(const QString &name, const QSize &size)
{
    return QStringLiteral("%1(%2x%3)")
        .arg(name, QString::number(size.width()), QString::number(size.height()));
}

/// Returns whether a cabinet can have @p size; if not, shows why.
bool mayHave(const QSize &size, int namedLeast, QWidget *parent)
{
    if (LayoutLimits::isCabinetSize(size))
        return true;
    CMessageBox::warning(
        parent, CAppendMenu::tr("Cabinet height or width must be between %1-2048, the WxH (%2x%3) of "
                                "this cabinet type already exceeds the limit.")
                    .arg(namedLeast)
                    .arg(size.width())
                    .arg(size.height()));
    return false;
}

} // namespace

void CAppendMenu::fill(QMenu &menu) const
{
    addRecent(menu);
    addCustom(menu);
    addLibrary(menu);
}

void CAppendMenu::addLibrary(QMenu &menu) const
{
    const QVector<SSettings::TypeLibrary::STreeNode> library = m_types.typeLibrary();
    if (library.isEmpty())
        return;
    menu.addSeparator();
    QMenu *types = menu.addMenu(tr("Type library"));
    TypeMenu::addLibrary(*types, library);
    QObject::connect(types, &QMenu::triggered, types,
                     [chosen = m_chosen, least = m_namedLeast, parent = m_parent](QAction *action) {
                         const auto type = action->data().value<TypeInfo>();
                         if (mayHave(QSize(type.width, type.height), least, parent))
                             chosen(type, QSize(type.width, type.height));
                     });
}

void CAppendMenu::addRecent(QMenu &menu) const
{
    QVector<TypeInfo> types;
    for (const SMD5 &key : m_recent.types()) {
        const TypeInfo type = m_types.getTypeInfo(key);
        if (type.isValid()) // skips types that are no longer in the library
            types << type;
    }
    if (types.isEmpty())
        return;
    QMenu *recent = menu.addMenu(tr("Use recent"));
    for (const TypeInfo &type : qAsConst(types)) {
        const QSize size(type.width, type.height);
        QAction *action = TypeMenu::addType(*recent, type, sizedText(type.name, size));
        action->setProperty("append", QVariant::fromValue(type));
        action->setProperty("appendSize", size);
        QObject::connect(action, &QAction::triggered, recent,
                         [chosen = m_chosen, least = m_namedLeast, parent = m_parent, type, size] {
                             if (mayHave(size, least, parent))
                                 chosen(type, size);
                         });
    }
    menu.addSeparator();
}

void CAppendMenu::addCustom(QMenu &menu) const
{
    const QSize size = m_recent.customSize();
    QAction *last = menu.addAction(sizedText(tr("Custom"), size));
    last->setProperty("append", QVariant::fromValue(TypeInfo()));
    last->setProperty("appendSize", size);
    QObject::connect(last, &QAction::triggered, &menu, [chosen = m_chosen, size] { chosen({}, size); });
    QAction *other = menu.addAction(QStringLiteral("%1...").arg(tr("Custom")));
    QObject::connect(other, &QAction::triggered, &menu,
                     [&recent = m_recent, chosen = m_chosen, parent = m_parent, size] {
                         CCustomCabinet dialog(size, parent);
                         if (dialog.exec() != QDialog::Accepted)
                             return;
                         recent.setCustomSize(dialog.cabinetSize());
                         chosen({}, dialog.cabinetSize());
                     });
}
