/** The keys of the desk: what the television's window offers beside the remote control. */
#ifndef DESKKEYS_H
#define DESKKEYS_H

#include <QString>
#include <array>

namespace tv {

enum class DeskAction {
    HELP,
    REMOTE_CONTROL,
    RELOAD,
    FIRST_START,
    SCREENSHOT,
    TIMELINE,
    MENU,
    FULL_SCREEN,
    INSPECTOR,
    ADDRESS,
    BACK,
    FORWARD
};

struct DeskKey {
    DeskAction action;
    const char* shortcut; ///< as QKeySequence::fromString reads it
    const char* title;    ///< in the menu and in the help
};

/** In the order of the menu and of the help. */
inline constexpr std::array<DeskKey, 12> deskKeys = {{
    {DeskAction::RELOAD, "F7", "Reload"},
    {DeskAction::FIRST_START, "Shift+F7", "Restart with empty profile"},
    {DeskAction::BACK, "Alt+Left", "Back"},
    {DeskAction::FORWARD, "Alt+Right", "Forward"},
    {DeskAction::ADDRESS, "Ctrl+L", "Open an address or file"},
    {DeskAction::SCREENSHOT, "F8", "Screenshot"},
    {DeskAction::TIMELINE, "F9", "Timeline"},
    {DeskAction::INSPECTOR, "F12", "Inspector"},
    {DeskAction::REMOTE_CONTROL, "F6", "Remote control"},
    {DeskAction::FULL_SCREEN, "F11", "Full screen"},
    {DeskAction::HELP, "F1", "Keys"},
    {DeskAction::MENU, "F10", "Menu"},
}};

/** @return the desk's key of that name, in upper or lower case; null when there is none */
const DeskKey* deskKeyNamed(const QString& shortcut);

} // namespace tv

#endif
