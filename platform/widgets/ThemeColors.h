// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

/// The colours of the application's dark look, named by purpose. No other file defines colours of the theme.
namespace ThemeColors {

constexpr QRgb Frame = qRgb(31, 31, 36);       ///< windows, panels, dialogs
constexpr QRgb Base = qRgb(20, 20, 24);        ///< background of lists, tables, text fields, bars
constexpr QRgb Raised = qRgb(52, 52, 60);      ///< buttons, menus, tool tips
constexpr QRgb RaisedHover = qRgb(66, 66, 76); ///< the same under the mouse
constexpr QRgb Border = qRgb(8, 8, 8);         ///< lines between areas
constexpr QRgb Outline = qRgb(112, 112, 122);  ///< the border of controls without a fill

constexpr QRgb Text = qRgb(240, 240, 246);
constexpr QRgb SoftText = qRgb(202, 202, 210); ///< captions, headings
constexpr QRgb DimText = qRgb(136, 136, 146);  ///< hints, disabled texts; on Frame or Base only
constexpr QRgb DarkText = qRgb(8, 8, 8);       ///< on bright colours

constexpr QRgb Accent = qRgb(38, 92, 190); ///< selection, the main button
constexpr QRgb AccentHover = qRgb(46, 104, 204);
constexpr QRgb AccentDown = qRgb(30, 76, 160);
constexpr QRgb IdleSelection = qRgb(43, 58, 89); ///< selection in a list without the keyboard focus
constexpr QRgb Focus = qRgb(94, 160, 255);       ///< the mark of the keyboard focus, links

constexpr QRgb LoadGood = qRgb(44, 153, 65); ///< a processor within its capacity
constexpr QRgb LoadOver = qRgb(170, 42, 42); ///< an overloaded processor

constexpr QRgb Card = qRgb(42, 42, 49);              ///< the button of an output port
constexpr QRgb PortLoadGood = qRgb(49, 194, 73);     ///< a port within its capacity
constexpr QRgb PortLoadUnknown = qRgb(190, 163, 25); ///< a port whose load is not known
constexpr QRgb PortLoadOver = qRgb(200, 53, 53);     ///< an overloaded port; on Text or Base only
constexpr QRgb Fault = qRgb(255, 122, 115);          ///< what is wrong, on Frame
constexpr QRgb Warning = qRgb(242, 184, 75);         ///< what needs the user, on Frame

} // namespace ThemeColors
