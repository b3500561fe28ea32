#pragma once

// The numbers by which windows and dialogs name their help page.
namespace tessel::help_context {

inline constexpr int none = 0;  // opens the contents

// Windows and panes.
inline constexpr int window = 4010000;
inline constexpr int diagram = 4010030;
inline constexpr int activityLog = 4010060;
inline constexpr int options = 4010070;

// Input dialogs.
inline constexpr int renameTable = 4020010;
inline constexpr int newIndex = 4020020;

// Editing dialogs.
inline constexpr int tableDialog = 4030000;
inline constexpr int columnDialog = 4030010;
inline constexpr int indexDialog = 4030020;
inline constexpr int foreignKeyDialog = 4030030;
inline constexpr int newKeyDialog = 4030040;

}  // namespace tessel::help_context
