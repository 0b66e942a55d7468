// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

// Attributes with which clang (-Wthread-safety) checks at compile time that data is accessed only under its
// lock.
#if defined(__clang__)
#define ORVO_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define ORVO_THREAD_ATTRIBUTE(x)
#endif

#define ORVO_CAPABILITY(name) ORVO_THREAD_ATTRIBUTE(capability(name))
#define ORVO_SCOPED_CAPABILITY ORVO_THREAD_ATTRIBUTE(scoped_lockable)
#define ORVO_GUARDED_BY(lock) ORVO_THREAD_ATTRIBUTE(guarded_by(lock))
#define ORVO_REQUIRES(lock) ORVO_THREAD_ATTRIBUTE(requires_capability(lock))
#define ORVO_REQUIRES_SHARED(lock) ORVO_THREAD_ATTRIBUTE(requires_shared_capability(lock))
#define ORVO_ACQUIRE(...) ORVO_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define ORVO_ACQUIRE_SHARED(...) ORVO_THREAD_ATTRIBUTE(acquire_shared_capability(__VA_ARGS__))
#define ORVO_RELEASE(...) ORVO_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define ORVO_RELEASE_SHARED(...) ORVO_THREAD_ATTRIBUTE(release_shared_capability(__VA_ARGS__))
#define ORVO_RELEASE_ANY(...) ORVO_THREAD_ATTRIBUTE(release_generic_capability(__VA_ARGS__))
