#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tessel::text {

// The numbered texts of one language, and the product texts, which have names in place of numbers.
class Texts {
  public:
    // Reads FOLDER/LANGUAGE.txt; `language` is "en", "ja" or "ko". Each line is a number or a product text's
    // name, a blank and the text, in which \n, \r, \t and \\ stand for those characters; empty lines and
    // lines that begin with '#' are passed over. Throws ErrorKind::File, saying file and line.
    Texts(const std::string& folder, std::string_view language);

    [[nodiscard]] const std::string& Language() const { return language_; }

    // The text as it stands, placeholders included; throws ErrorKind::Host when there is none.
    [[nodiscard]] const std::string& Text(int number) const;
    [[nodiscard]] const std::string& Product(std::string_view name) const;  // "Tessel.Name", "ProductName"

    // The text with %1, %2, ... replaced by the arguments in order.
    [[nodiscard]] std::string Format(int number, std::initializer_list<std::string_view> arguments) const;

    [[nodiscard]] auto begin() const { return texts_.begin(); }  // every text under its number or name
    [[nodiscard]] auto end() const { return texts_.end(); }

  private:
    std::string language_;
    std::unordered_map<std::string, std::string> texts_;
};

// Replaces %1 to %9 in one pass, so that an argument is never searched for placeholders; a placeholder
// without an argument stays.
[[nodiscard]] std::string FormatText(std::string_view text,
                                     std::initializer_list<std::string_view> arguments);

// "en", "ja" or "ko", by LC_ALL, LC_MESSAGES and LANG.
[[nodiscard]] std::string LanguageOfLocale();

}  // namespace tessel::text
