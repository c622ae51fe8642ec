#include "desktop/KeyCodes.h"

#include <algorithm>
#include <array>

namespace ovalia::desktop {

namespace {

struct KeyRow {
  int key;
  int code;
};

constexpr auto keys = std::to_array<KeyRow>({
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Exclam, 49},
    {Qt::Key_QuoteDbl, 50},
    {Qt::Key_periodcentered, 51},
    {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53},
    {Qt::Key_Ampersand, 54},
    {Qt::Key_Slash, 55},
    {Qt::Key_ParenLeft, 56},
    {Qt::Key_ParenRight, 57},
    {Qt::Key_Equal, 48},
    {Qt::Key_Plus, 187},
    {Qt::Key_Asterisk, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Semicolon, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Colon, 190},
    {Qt::Key_Ccedilla, 191},
    {Qt::Key_Ntilde, 192},
    {Qt::Key_Apostrophe, 219},
    {Qt::Key_Question, 219},
    {Qt::Key_exclamdown, 221},
    {Qt::Key_questiondown, 221},
    {Qt::Key_Less, 226},
    {Qt::Key_Greater, 226},
});

constexpr auto keypad = std::to_array<KeyRow>({
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},
    {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},
    {Qt::Key_Comma, 110},
    {Qt::Key_Slash, 111},
});

template <std::size_t n>
int find(const std::array<KeyRow, n>& table, int key) {
  const auto row = std::find_if(table.begin(), table.end(), [=](const KeyRow& r) { return r.key == key; });
  return row == table.end() ? 0 : row->code;
}

}  // namespace

int virtualKey(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers & Qt::KeypadModifier) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + key - Qt::Key_0;
    if (const int code = find(keypad, key)) return code;
  }
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + key - Qt::Key_F1;
  return find(keys, key);
}

int shiftMask(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
         (modifiers & Qt::AltModifier ? 4 : 0);
}

}  // namespace ovalia::desktop
