// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The one instance of T, created on first use (by whichever thread comes first) and destroyed when its
/// library is unloaded. Each type has one accessor, so that no library gets an instance of its own: write
/// ORVO_DECLARE_SINGLETON(T) after the class in its header, and ORVO_DEFINE_SINGLETON(T) in its .cpp.
template <typename T>
class CSingleton final
{
public:
    static T &instance();
};

#define ORVO_DECLARE_SINGLETON(T)                                                                            \
    template <>                                                                                              \
    T &CSingleton<T>::instance();

#define ORVO_DEFINE_SINGLETON(T)                                                                             \
    template <>                                                                                              \
    T &CSingleton<T>::instance()                                                                             \
    {                                                                                                        \
        static T instance;                                                                                   \
        return instance;                                                                                     \
    }
