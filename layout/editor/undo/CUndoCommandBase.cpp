// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CUndoCommandBase.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "platform/graphics/CGraphicsScene.h"

#include <array>

namespace {

CGraphicsItemBase *asItemBase(QGraphicsItem *item)
{
    const bool isBase = item && (item->type() == CabinetItemKind || item->type() == GroupItemKind);
    return isBase ? static_cast<CGraphicsItemBase *>(item) : nullptr;
}

/// Whether commands of that kind make their item anew, in undo or in redo.
bool makesItem(CUndoCommandBase::ECommandId id)
{
    return id == CUndoCommandBase::AppendId || id == CUndoCommandBase::RemoveId ||
           id == CUndoCommandBase::CreateGroupId || id == CUndoCommandBase::BreakGroupId;
}

QString commandText(CUndoCommandBase::ECommandId id, QString (*word)(), const QString &name)
{
    static std::array<QString, CUndoCommandBase::ChangeTypeId + 1> nameless;
    QString &known = nameless[id];
    if (known.isNull())
        known = word() + QLatin1Char(' ');
    return name.isEmpty() ? known : known + name;
}

QString nameOf(const CGraphicsItemBase *item)
{
    return item ? item->name() : QString();
}

} // namespace

CUndoCommandBase::CUndoCommandBase(ECommandId id, QGraphicsItem *item, Word word, bool named,
                                   QUndoCommand *parent)
    : CUndoCommand(id, item, commandText(id, word, named ? nameOf(asItemBase(item)) : QString()), parent)
{
    const CGraphicsItemBase *base = asItemBase(item);
    if (!base)
        return;
    if (const CGraphicsPortItem *owner = base->portItem())
        m_editor = &owner->editor();
    m_port = base->port();
    if (const CGraphicsGroupItem *group = base->groupItem())
        m_parentUuid = group->uuid();
    m_uuid = base->uuid();
    m_itemType = item->type();
    if (scene())
        scene()->expectItem(m_uuid, *item); // the first redo follows
    if (makesItem(id))
        m_origin = originOf(*base);
}

std::unique_ptr<CUndoCommandBase::SOrigin> CUndoCommandBase::originOf(const CGraphicsItemBase &item)
{
    auto origin = std::make_unique<SOrigin>();
    origin->pos = item.pos();
    origin->scenePos = item.scenePlace();
    origin->rect = item.rect();
    for (int role = 1; role <= 2; ++role) {
        const QVariant value = item.data(role);
        if (value.isValid())
            origin->data.insert(role, value);
    }
    return origin;
}

void CUndoCommandBase::setFactory(const Factory &factory)
{
    if (m_origin)
        m_origin->factory = factory;
}

CUndoCommandBase::SSelections &CUndoCommandBase::selections()
{
    if (!m_selections)
        m_selections = std::make_unique<SSelections>();
    return *m_selections;
}

CGraphicsItemBase *CUndoCommandBase::resolvedItem() const
{
    CGraphicsItemBase *base = asItemBase(item(m_uuid));
    return base && base->type() == m_itemType ? base : nullptr;
}

CGraphicsCabinetItem *CUndoCommandBase::resolvedCabinet() const
{
    CGraphicsItemBase *base = m_itemType == CabinetItemKind ? resolvedItem() : nullptr;
    return base ? static_cast<CGraphicsCabinetItem *>(base) : nullptr;
}

CGraphicsGroupItem *CUndoCommandBase::resolvedGroup() const
{
    CGraphicsItemBase *base = m_itemType == GroupItemKind ? resolvedItem() : nullptr;
    return base ? static_cast<CGraphicsGroupItem *>(base) : nullptr;
}

CGraphicsPortItem *CUndoCommandBase::portItem() const
{
    return m_editor ? m_editor->items().portItem(m_port) : nullptr;
}

void CUndoCommandBase::repaint()
{
    if (m_editor)
        m_editor->notes().noteRepaint();
    else if (scene())
        scene()->updateViews();
}

void CUndoCommandBase::finishGeometry(CGraphicsItemBase &base)
{
    if (m_editor) {
        if (base.type() == GroupItemKind)
            m_editor->notes().noteMembersChanged(static_cast<CGraphicsGroupItem &>(base));
        else if (CGraphicsGroupItem *group = base.groupItem())
            m_editor->notes().noteMembersChanged(*group);
    }
    repaint();
}

void CUndoCommandBase::leaveWithMembers(CGraphicsItemBase &base)
{
    if (base.type() == GroupItemKind) {
        for (CGraphicsItemBase *member : static_cast<CGraphicsGroupItem &>(base).members())
            leaveWithMembers(*member);
    } else if (CGraphicsPortItem *owner = base.portItem()) {
        owner->chain().unlink(static_cast<CGraphicsCabinetItem &>(base),
                              true); // a line must not outlive its cabinet
    }
    m_editor->items().leaveEdited(base);
}

void CUndoCommandBase::takeOut()
{
    CGraphicsItemBase *base = resolvedItem();
    if (!base || !m_editor)
        return;
    CGraphicsPortItem *owner = base->portItem();
    CGraphicsGroupItem *group = base->groupItem();
    leaveWithMembers(*base);
    if (owner)
        owner->chain().finishLines(); // removed after the cabinets they would cost more
    scene()->removeItem(base);
    delete base;
    if (group)
        m_editor->notes().noteMembersChanged(*group);
    if (owner)
        owner->noteChanged();
    repaint();
}

CGraphicsItemBase *CUndoCommandBase::makeItem()
{
    CGraphicsItemBase *base = m_origin && m_origin->factory ? m_origin->factory() : nullptr;
    if (!base)
        return nullptr;
    base->setUuid(m_uuid);
    for (auto role = m_origin->data.begin(); role != m_origin->data.end(); ++role)
        base->setData(role.key(), role.value());
    base->setSize(m_origin->rect.size());
    return base;
}

void CUndoCommandBase::putIntoScene(CGraphicsItemBase &base)
{
    // A port has no identity: a null parent means the port with the recorded index.
    QGraphicsItem *parent = m_parentUuid.isNull() ? portItem() : parentItem();
    if (parent)
        base.setParentItem(parent);
    else if (base.scene() != scene())
        scene()->addItem(&base);
    m_editor->items().enterEdited(base);
}

void CUndoCommandBase::recreate(EPlace place)
{
    if (!m_editor)
        return;
    CGraphicsItemBase *base = makeItem();
    if (!base)
        return;
    const CItemChangeBlocker blocker(*base);
    putIntoScene(*base);
    if (place == AtPosition)
        base->setPos(m_origin->pos);
    else
        base->placeAt(m_origin->scenePos);
    base->followGeometry();
    base->selectOutermost(true);
    finishGeometry(*base);
}

void CUndoCommandBase::dissolveGroup(EDissolveTo target)
{
    CGraphicsGroupItem *group = resolvedGroup();
    if (!group || !m_editor || !group->portItem())
        return;
    CGraphicsPortItem *owner = group->portItem();
    QGraphicsItem *newParent = target == ToRecordedParent ? parentItem() : nullptr;
    CGraphicsGroupItem *around = group->groupItem();
    m_editor->items().leaveEdited(*group);
    group->dissolve(newParent ? *newParent : *owner);
    scene()->removeItem(group);
    delete group;
    if (around)
        m_editor->notes().noteMembersChanged(*around);
    owner->noteChanged();
    repaint();
}

void CUndoCommandBase::recreateGroup(const QVector<QUuid> &members)
{
    if (!m_editor)
        return;
    CGraphicsItemBase *base = makeItem();
    if (!base)
        return;
    auto *group = static_cast<CGraphicsGroupItem *>(base);
    const CItemChangeBlocker blocker(*group);
    putIntoScene(*group);
    group->setPos(m_origin->pos);
    QVector<CGraphicsItemBase *> found;
    for (const QUuid &member : members) {
        if (CGraphicsItemBase *memberItem = asItemBase(item(member)))
            found << memberItem;
    }
    group->gather(found);
    group->selectOutermost(true);
    m_editor->notes().noteMembersChanged(*group);
    if (CGraphicsPortItem *owner = group->portItem())
        owner->noteChanged();
    repaint();
}

void CUndoCommandBase::appendToChain()
{
    CGraphicsCabinetItem *cabinet = resolvedCabinet();
    CGraphicsPortItem *owner = cabinet ? cabinet->portItem() : nullptr;
    if (!owner || cabinet->isInChain())
        return;
    const CItemChangeBlocker blocker(*cabinet);
    owner->chain().append(*cabinet);
    repaint();
}

void CUndoCommandBase::takeOutOfChain()
{
    CGraphicsCabinetItem *cabinet = resolvedCabinet();
    CGraphicsPortItem *owner = cabinet ? cabinet->portItem() : nullptr;
    if (!owner || !cabinet->isInChain())
        return;
    const CItemChangeBlocker blocker(*cabinet);
    owner->chain().unlink(*cabinet, true);
    repaint();
}
