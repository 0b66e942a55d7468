// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CUndoCommandBase.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "platform/graphics/CGraphicsScene.h"

namespace {

CGraphicsItemBase *asItemBase(QGraphicsItem *item)
{
    const bool isBase = item && (item->type() == CabinetItemKind || item->type() == GroupItemKind);
    return isBase ? static_cast<CGraphicsItemBase *>(item) : nullptr;
}

QString commandText(const QString &word, bool named, const CGraphicsItemBase *item)
{
    return word + QLatin1Char(' ') + (named && item ? item->name() : QString());
}

} // namespace

CUndoCommandBase::CUndoCommandBase(ECommandId id, QGraphicsItem *item, const QString &word, bool named,
                                   QUndoCommand *parent)
    : CUndoCommand(id, item, commandText(word, named, asItemBase(item)), parent)
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
    m_pos = item->pos();
    m_scenePos = item->scenePos();
    m_rect = base->rect();
    for (int role = 1; role <= 2; ++role) {
        const QVariant value = item->data(role);
        if (value.isValid())
            m_data.insert(role, value);
    }
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
    if (scene())
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
    CGraphicsItemBase *base = m_factory ? m_factory() : nullptr;
    if (!base)
        return nullptr;
    base->setUuid(m_uuid);
    for (auto role = m_data.begin(); role != m_data.end(); ++role)
        base->setData(role.key(), role.value());
    base->setSize(m_rect.size());
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
    const QPointF byScene = base->parentItem() ? base->parentItem()->mapFromScene(m_scenePos) : m_scenePos;
    base->setPos(place == AtPosition ? m_pos : byScene);
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
    group->setPos(m_pos);
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
