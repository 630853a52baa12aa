#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tilwin::x11 {

/// One key of an ANSI keyboard: its key code in the settings, and the XKB name of the key at that position,
/// which does not depend on the keyboard layout. Source: the XKB keycode descriptions "evdev" and "xfree86".
struct KeyPosition {
  std::uint32_t keyCode = 0;
  std::string_view name;
};

inline constexpr std::array<KeyPosition, 90> keyPositions{{
    {0, "AC01"},   {1, "AC02"},   {2, "AC03"},   {3, "AC04"},   {5, "AC05"},   {4, "AC06"},   {38, "AC07"},
    {40, "AC08"},  {37, "AC09"},  {41, "AC10"},  {39, "AC11"},  {12, "AD01"},  {13, "AD02"},  {14, "AD03"},
    {15, "AD04"},  {17, "AD05"},  {16, "AD06"},  {32, "AD07"},  {34, "AD08"},  {31, "AD09"},  {35, "AD10"},
    {33, "AD11"},  {30, "AD12"},  {6, "AB01"},   {7, "AB02"},   {8, "AB03"},   {9, "AB04"},   {11, "AB05"},
    {45, "AB06"},  {46, "AB07"},  {43, "AB08"},  {47, "AB09"},  {44, "AB10"},  {50, "TLDE"},  {18, "AE01"},
    {19, "AE02"},  {20, "AE03"},  {21, "AE04"},  {23, "AE05"},  {22, "AE06"},  {26, "AE07"},  {28, "AE08"},
    {25, "AE09"},  {29, "AE10"},  {27, "AE11"},  {24, "AE12"},  {42, "BKSL"},  {36, "RTRN"},  {48, "TAB"},
    {49, "SPCE"},  {51, "BKSP"},  {53, "ESC"},   {117, "DELE"}, {115, "HOME"}, {119, "END"},  {116, "PGUP"},
    {121, "PGDN"}, {123, "LEFT"}, {124, "RGHT"}, {125, "DOWN"}, {126, "UP"},   {122, "FK01"}, {120, "FK02"},
    {99, "FK03"},  {118, "FK04"}, {96, "FK05"},  {97, "FK06"},  {98, "FK07"},  {100, "FK08"}, {101, "FK09"},
    {109, "FK10"}, {103, "FK11"}, {111, "FK12"}, {65, "KPDL"},  {67, "KPMU"},  {69, "KPAD"},  {75, "KPDV"},
    {76, "KPEN"},  {78, "KPSU"},  {81, "KPEQ"},  {82, "KP0"},   {83, "KP1"},   {84, "KP2"},   {85, "KP3"},
    {86, "KP4"},   {87, "KP5"},   {88, "KP6"},   {89, "KP7"},   {91, "KP8"},   {92, "KP9"},
}};

}  // namespace tilwin::x11
