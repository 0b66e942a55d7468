// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// What one side offers the other to call. Use dynamic cast to get the concrete interface, and keep the
/// shared pointer for one call only.
class IAbstractInterfaceHandler
{
public:
    virtual ~IAbstractInterfaceHandler() = default;
};
