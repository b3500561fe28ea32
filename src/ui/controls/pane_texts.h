#pragma once

namespace tessel::pane_text {

inline constexpr int maximise = 2200;
inline constexpr int restore = 2201;
inline constexpr int close = 2202;
inline constexpr int leftOf = 2203;
inline constexpr int rightOf = 2204;
inline constexpr int above = 2205;
inline constexpr int below = 2206;
inline constexpr int swapWith = 2207;
inline constexpr int wider = 2208;
inline constexpr int narrower = 2209;
inline constexpr int taller = 2210;
inline constexpr int shorter = 2211;
inline constexpr int wholeWindow = 2212;
inline constexpr int maximisePane = 2213;  // %1: the pane's caption, as in the next two
inline constexpr int restorePane = 2214;
inline constexpr int closePane = 2215;

}  // namespace tessel::pane_text
