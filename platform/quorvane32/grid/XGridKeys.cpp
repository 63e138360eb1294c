#include "platform/quorvane32/grid/XGridKeys.h"
#include <array>
#include <utility>

namespace quorvane {

namespace {

constexpr auto namedKeys = std::to_array<std::pair<int, int>>({
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},       {Qt::Key_Backtab, 9},  {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},    {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},  {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},     {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},     {Qt::Key_Up, 38},       {Qt::Key_Right, 39},   {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},   {Qt::Key_Delete, 46},   {Qt::Key_Menu, 93},
});
constexpr int virtualKeyF1 = 112;

} // namespace

int virtualKey(const QKeyEvent& event) {
    const int key = event.key();
    // Digits and Latin letters carry their capital's character code in both numberings.
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return virtualKeyF1 + key - Qt::Key_F1;
    for (const auto& [qtKey, code] : namedKeys) {
        if (qtKey == key)
            return code;
    }
    return 0;
}

bool typesCharacter(const QKeyEvent& event) {
    const Qt::KeyboardModifiers command = Qt::ControlModifier | Qt::AltModifier;
    const Qt::KeyboardModifiers held = event.modifiers() & (command | Qt::MetaModifier);
    // AltGr arrives as Ctrl and Alt together on Windows.
    if (held && held != command)
        return false;
    const QString text = event.text();
    return !text.isEmpty() && (text[0].isPrint() || text[0].isSurrogate());
}

} // namespace quorvane
