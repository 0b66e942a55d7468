// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/ILayoutInterfaceHandler.h"

/// Which operations of the host depend on the layout in the editor, so that pending edits are handed over
/// before they are called. Commands do, as a rule; queries do not. The exceptions are listed here and nowhere
/// else.
namespace HostOperations {

template <typename Operation>
inline constexpr bool IsQuery = false;
template <typename Answer, typename... Arguments>
inline constexpr bool IsQuery<Answer (ILayoutInterfaceHandler::*)(Arguments...) const> = true;

template <auto Operation>
inline constexpr bool NeedsEdits = !IsQuery<decltype(Operation)>;

// Queries that ask about the layout itself.
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::layoutData> = true;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::unsavedEdits> = true;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::processorOfCabinet> = true;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::portPairRefusal> = true;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::portRedundancies> = true;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::areOnPrimaryPorts> = true;

// Commands that are part of handing over, or write what they are given.
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::commitLayoutData> = false;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::applyLayoutFollowUp> = false;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::setPortLocked> = false;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::setPortColor> = false;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::recordEdit> = false;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::setPrintSettings> = false;
template <>
inline constexpr bool NeedsEdits<&ILayoutInterfaceHandler::writeFile> = false;

} // namespace HostOperations
