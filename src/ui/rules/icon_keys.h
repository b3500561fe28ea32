#pragma once

// The keys of the icons that the lists show. No icon is the empty text.
namespace tessel::icon {

inline constexpr const char* none = "";
inline constexpr const char* key = "key";
inline constexpr const char* notNull = "notnull";
inline constexpr const char* foreign = "foreign";
inline constexpr const char* index = "index";
inline constexpr const char* uniqueIndex = "index1";
inline constexpr const char* ascending = "down";
inline constexpr const char* descending = "up";

}  // namespace tessel::icon
