#pragma once

// What the entry points of a component's library answer.
namespace tessel::component {

inline constexpr int succeeded = 0;
inline constexpr int failed = 1;

// Whether the action came to its end; whatever it throws stays within the library.
template <typename Action>
int Answer(Action&& action) {
    try {
        action();
        return succeeded;
    } catch (...) {
        return failed;
    }
}

}  // namespace tessel::component
