// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/ILayoutInterfaceHandler.h"

#include <QtGlobal>

/// The operations that the module does not call yet. Move an operation to CFakeHandler when it is first
/// called.
class CUncalledOperations : public ILayoutInterfaceHandler
{
public:
    QVector<CabinetLayout::CabinetPort> currentProcessorPorts() const override { return none(); }

private:
    struct SNone
    {
        template <typename Answer>
        operator Answer() const
        {
            return {};
        }
    };
    static SNone none()
    {
        qWarning("An operation was called that the fake handler does not know"); // fails the test
        return {};
    }
};
