// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

class CSubject;
class IAbstractInterfaceHandler;
class QObject;

/// The control interface of one side (host or module): gives the other side access to its object, its handler
/// and its notifications, and stops it. A side is never deleted through this interface.
class IAbstractControlInterface
{
public:
    virtual ~IAbstractControlInterface() = default;

    /// The object behind the interface, for invocations by name; owned by its side. Any thread.
    virtual QObject *object() = 0;

    /// The side's handler, to be fetched for each call; null while the side offers none. Any thread.
    virtual std::shared_ptr<IAbstractInterfaceHandler> handler() const = 0;

    /// The subject to attach observers to; null if the side sends no notifications. Any thread.
    virtual CSubject *subject() = 0;

    /// Ends the side's work while the application object still exists: on return its threads have ended, its
    /// queued work is delivered or dropped, and its views are deleted. A second call does nothing. GUI
    /// thread.
    virtual void stop() = 0;
};
