#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tessel::text {

// The system's ANSI code page: 932, 949, 1252 or 65001.
class CodePage {
  public:
    explicit CodePage(int number);  // any other number throws ErrorKind::Argument
    ~CodePage();
    CodePage(CodePage&&) noexcept;
    CodePage& operator=(CodePage&&) noexcept;

    // The one that TESSEL_CODEPAGE names, else the locale's: 932 for Japanese, 949 for Korean, 1252 for the
    // rest.
    [[nodiscard]] static CodePage FromEnvironment();

    [[nodiscard]] int Number() const { return number_; }

    // Whether the code page encodes the character with two bytes. In 65001 none counts as such.
    [[nodiscard]] bool IsDoubleByte(char32_t character) const;

    // The character with this two-byte code; nothing when there is none.
    [[nodiscard]] std::optional<char32_t> CharacterOf(std::uint16_t code) const;

    // The bytes as UTF-8, with U+FFFD for a byte that has no character.
    [[nodiscard]] std::string Decode(std::string_view bytes) const;

  private:
    struct Converters;
    int number_;
    std::unique_ptr<Converters> converters_;
};

}  // namespace tessel::text
