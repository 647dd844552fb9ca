// Font objects of any maker, by their Automation identifiers.
#pragma once

#include "core/dispatchproperty.h"

#include <MoxRuntime/descriptions.h>

namespace mox::server {

using MoxRuntime::IFontDisp;

inline constexpr DISPID fontName = 0;
inline constexpr DISPID fontSize = 2;
inline constexpr DISPID fontBold = 3;
inline constexpr DISPID fontItalic = 4;
inline constexpr DISPID fontUnderline = 5;
inline constexpr DISPID fontStrikethrough = 6;
inline constexpr DISPID fontCharset = 8;

/// A new font object of the run-time layer. Error 429 if it makes none.
Ref<IFontDisp> newFont();

} // namespace mox::server
