// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/Layout_Init.h"
#include "platform/control/IAbstractControlInterface.h"
#include "platform/control/IAbstractInterfaceHandler.h"

namespace {

/// A control interface that is not the Layout module's.
class CForeignControl final : public IAbstractControlInterface
{
public:
    QObject *object() override { return nullptr; }
    std::shared_ptr<IAbstractInterfaceHandler> handler() const override { return nullptr; }
    CSubject *subject() override { return nullptr; }
    void stop() override {}
};

} // namespace

bool Layout_Init(IAbstractControlInterface **out, IAbstractControlInterface *, QWidget *)
{
    static CForeignControl control;
    *out = &control;
    return true;
}
