// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CSubject;

/// Receives a subject's notifications.
class CObserver
{
public:
    virtual ~CObserver() = default;

    /// Called on the Update thread, once per notification. The argument can be read from @p subject only
    /// until this returns, so an observer copies what it needs. Exceptions are passed to the caller of
    /// notify().
    virtual void Update(CSubject &subject) = 0;
};
