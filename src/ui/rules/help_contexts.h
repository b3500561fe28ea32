#pragma once

// The numbers by which windows and dialogs name their help page.
namespace tessel::help_context {

inline constexpr int none = 0;  // opens the contents

// Windows and panes.
inline constexpr int window = 4010000;
inline constexpr int browser = 4010010;
inline constexpr int properties = 4010020;
inline constexpr int diagram = 4010030;
inline constexpr int origin = 4010040;
inline constexpr int errors = 4010050;
inline constexpr int activityLog = 4010060;
inline constexpr int options = 4010070;
inline constexpr int addOns = 4010080;

// Input dialogs.
inline constexpr int newTable = 4020000;
inline constexpr int renameTable = 4020010;
inline constexpr int newIndex = 4020020;

// Editing dialogs.
inline constexpr int tableDialog = 4030000;
inline constexpr int columnDialog = 4030010;
inline constexpr int indexDialog = 4030020;
inline constexpr int foreignKeyDialog = 4030030;
inline constexpr int newKeyDialog = 4030040;

// Jobs.
inline constexpr int verification = 4040000;
inline constexpr int import = 4040010;
inline constexpr int commandLine = 4040020;

}  // namespace tessel::help_context
