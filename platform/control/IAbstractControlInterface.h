// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

class CSubject;
class IAbstractInterfaceHandler;
class QObject;

/// The control interface of one side (host or module): how the other side reaches its object, its handler and
/// its notifications, and how it is stopped. A side is never deleted through this interface.
class IAbstractControlInterface
{
public:
    virtual ~IAbstractControlInterface() = default;

    /// The object behind the interface, for invocations by name; owned by its side. Any thread.
    virtual QObject *object() = 0;

    /// The side's handler, fetched afresh for each call; null while the side offers none. Any thread.
    virtual std::shared_ptr<IAbstractInterfaceHandler> handler() const = 0;

    /// The side's notifications, to attach observers to; null when the side notifies nobody. Any thread.
    virtual CSubject *subject() = 0;

    /// Ends the side's work while the application object still lives: its threads have ended, its queued work
    /// is delivered or dropped and its views are gone when this returns. A second call does nothing. GUI
    /// thread.
    virtual void stop() = 0;
};
