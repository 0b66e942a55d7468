// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CEditorCommands.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/data/CLayoutData.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/operations/CSelectionShape.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/ports/CAppendMenu.h"
#include "layout/panels/ports/CPortFill.h"
#include "layout/plugin/CCabinetFiles.h"
#include "layout/settings/CCabinetInformation.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CProcessorInView.h"
#include "platform/widgets/CMessageBox.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

namespace {
using Host = ILayoutInterfaceHandler;
}

CEditorCommands::CEditorCommands(CLayoutData &store, CLayoutGraphicsView &view)
    : m_store(store)
    , m_view(view)
    , m_canvas(view)
{
}

void CEditorCommands::fillCurrentPort(QWidget *parent)
{
    if (m_store.currentPort() >= 0)
        CPortFill(m_store, parent).ask(m_store.currentPort());
}

void CEditorCommands::resetFills(QWidget *parent)
{
    CPortFill(m_store, parent).resetAll();
}

void CEditorCommands::markCustomCabinets(bool marked)
{
    SLayoutOptions options = m_store.options();
    options.markupCustomCabinets = marked;
    m_store.setOptions(options);
}

void CEditorCommands::chooseType(QWidget *parent)
{
    const QUuid processor = m_store.currentProcessor();
    CCabinetGraphicsScene &scene = m_view.cabinetScene();
    for (const int port : scene.selection().ports()) {
        if (m_store.isPortLocked(port)) {
            CMessageBox::warning(parent, EditRefusal::ofPort(port, true, false));
            return;
        }
    }
    CCabinetTypeSetting dialog(
        scene.selection().records(), [&store = m_store] { return store.typeLibrary(); }, parent);
    if (dialog.exec() != QDialog::Accepted || !CProcessorInView::isStill(processor, parent))
        return;
    m_store.recentCabinets().noteType(dialog.type().key);
    scene.backend().shape().applyType(dialog.type());
}

void CEditorCommands::saveParameters(const QList<Cabinet> &cabinets, QWidget *parent)
{
    CCabinetParaSave(cabinets, m_store.typeLibrary(), parent).exec();
}

void CEditorCommands::showInformation(const QList<Cabinet> &cabinets, QWidget *parent)
{
    const auto typeOf = [&store = m_store](const SMD5 &key) { return store.getTypeInfo(key); };
    CCabinetInformation(cabinets, typeOf, parent).exec();
}

QString CEditorCommands::typeName(const Cabinet &cabinet) const
{
    return cabinet.type.isNull() ? QString() : m_store.getTypeInfo(cabinet.type).name;
}

QString CEditorCommands::exportRefusal(const Cabinet &cabinet) const
{
    return cabinet.type.isNull() || m_store.getTypeInfo(cabinet.type).isValid()
               ? QString()
               : tr("The cabinet's type is not in the type library.");
}

void CEditorCommands::exportConfiguration(const Cabinet &cabinet, QWidget *parent)
{
    CCabinetFiles(m_store, parent).exportConfiguration(cabinet, typeName(cabinet));
}

QString CEditorCommands::connectionRefusal() const
{
    return CProcessorInView::connectionRefusal();
}

QString CEditorCommands::connectionRefusal(const QList<Cabinet> &cabinets) const
{
    return CProcessorInView::connectionRefusal(cabinets);
}

void CEditorCommands::readBackConfiguration(const Cabinet &cabinet, QWidget *parent)
{
    CCabinetFiles(m_store, parent).readBack(cabinet, typeName(cabinet));
}

void CEditorCommands::setFrameRateAndColorDepth(QWidget *)
{
    m_canvas.setFrameRateAndColorDepth();
}

void CEditorCommands::setCanvasSize(QWidget *)
{
    m_canvas.setCanvasSize();
}

void CEditorCommands::setCanvasFill(QWidget *)
{
    m_canvas.setCanvasFill();
}

void CEditorCommands::adjustCurrentGain(QWidget *)
{
    m_canvas.adjustCurrentGain();
}

void CEditorCommands::openTypeLibrary(QWidget *parent)
{
    CHostAccess::call<&Host::showTypeLibrary>(parent);
}

void CEditorCommands::fillAppendMenu(QMenu &menu, QWidget *parent)
{
    const int port = m_store.currentPort();
    CSceneBackend &backend = m_view.cabinetScene().backend();
    const QString refused = backend.placing().appendRefusal(port);
    if (!refused.isEmpty()) {
        const CGraphicsPortItem *item = backend.content().portItem(port);
        if (item && !item->isClosed()) // it is full
            CMessageBox::warning(parent, refused);
        else
            backend.batches().tell(refused);
        return;
    }
    const auto chosen = [this, port](const TypeInfo &type, const QSize &size) { append(type, port, size); };
    CAppendMenu(m_store, m_store.recentCabinets(), chosen, CAppendMenu::OfTypes, parent).fill(menu);
}

/// Until something is placed, which is selected then, the port that it goes into is marked.
void CEditorCommands::append(const TypeInfo &type, int port, const QSize &size)
{
    const QList<int> selected = m_view.cabinetScene().selection().ports();
    if (!selected.isEmpty() && selected != QList<int>{port})
        m_view.onPortsChosen({});
    if (!type.key.isNull())
        m_store.recentCabinets().noteType(type.key);
    m_view.onNotifyAppendCabinet(type, port, size);
}

bool CEditorCommands::highlight(const QList<Cabinet> &cabinets, CabinetHighlight kind, QWidget *parent)
{
    const bool done = CHostAccess::call<&Host::setCabinetHighlight>(cabinets, kind);
    if (!done && !cabinets.isEmpty()) {
        // Called during a press on an item, which a message box would interrupt.
        QObject *context = parent ? static_cast<QObject *>(parent) : qApp;
        QTimer::singleShot(0, context, [parent, details = CHostAccess::call<&Host::lastError>()] {
            CMessageBox::warning(parent, tr("Set failed."), details);
        });
    }
    return done;
}
