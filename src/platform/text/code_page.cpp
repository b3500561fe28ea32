#include "platform/text/code_page.h"

#include <iconv.h>

#include <array>
#include <bitset>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/text/locale.h"
#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel::text {
namespace {

constexpr const char* characterEncoding = "UTF-32LE";
constexpr int utf8 = 65001;
constexpr const char* environmentName = "TESSEL_CODEPAGE";

class Converter {
  public:
    Converter(const char* to, const char* from) : descriptor_(iconv_open(to, from)) {
        if (descriptor_ == iconv_t(-1)) {
            throw Error(ErrorKind::Argument, std::string("The system's iconv has no conversion from ") +
                                                 from + " to " + to +
                                                 "; install the C library's conversion modules.");
        }
    }
    ~Converter() { iconv_close(descriptor_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Converts the whole input; returns the number of bytes put out, 0 when it does not convert.
    std::size_t Convert(const char* input, std::size_t inputSize, char* output,
                        std::size_t outputSize) const {
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        auto* in = const_cast<char*>(input);
        auto room = outputSize;
        const auto result = iconv(descriptor_, &in, &inputSize, &output, &room);
        return result == static_cast<std::size_t>(-1) || inputSize > 0 ? 0 : outputSize - room;
    }

    // Moves what converts from `bytes` to `converted`; false at a byte that does not.
    bool TakeSome(std::string_view& bytes, std::string& converted) const {
        std::array<char, 4096> output{};
        auto* in = const_cast<char*>(bytes.data());
        auto* out = output.data();
        auto left = bytes.size();
        auto room = output.size();
        const auto result = iconv(descriptor_, &in, &left, &out, &room);
        const bool isDone = result != static_cast<std::size_t>(-1) || errno == E2BIG;
        converted.append(output.data(), output.size() - room);
        bytes.remove_prefix(bytes.size() - left);
        return isDone;
    }

  private:
    iconv_t descriptor_;
};

// The name that iconv knows a code page by; null for UTF-8 and what is none.
const char* EncodingName(int number) {
    switch (number) {
        case 932:
            return "CP932";
        case 949:
            return "CP949";
        case 1252:
            return "CP1252";
        default:
            return nullptr;
    }
}

void RequireSupported(int number) {
    if (EncodingName(number) || number == utf8) return;
    throw Error(ErrorKind::Argument, "The code page " + std::to_string(number) +
                                         " is not supported; the code pages are 932, 949, 1252 and 65001.");
}

int ParseNumber(std::string_view text) {
    int number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault == std::errc() && end == text.data() + text.size()) return number;
    throw Error(ErrorKind::Argument, std::string("The environment variable ") + environmentName + " holds '" +
                                         std::string(text) +
                                         "'; set it to the number of a code page: 932, 949, 1252 or 65001.");
}

int NumberOfLocale() {
    const auto language = LocaleLanguage("LC_CTYPE");
    if (language == "ja") return 932;
    return language == "ko" ? 949 : 1252;
}

}  // namespace

struct CodePage::Converters {
    explicit Converters(const char* name)
        : encode(name, characterEncoding), decode(characterEncoding, name) {}

    [[nodiscard]] bool EncodesWithTwoBytes(char32_t character) const {
        std::array<char, 4> input{};
        for (unsigned i = 0; i < 4; ++i) input[i] = static_cast<char>(character >> (8 * i) & 0xFFU);
        std::array<char, 8> output{};
        return encode.Convert(input.data(), input.size(), output.data(), output.size()) == 2;
    }

    Converter encode;
    Converter decode;
    std::bitset<0x10000> known;  // by code point of the basic plane; no code page reaches beyond
    std::bitset<0x10000> doubleByte;
};

CodePage::CodePage(int number) : number_(number) {
    RequireSupported(number);
    if (number == 932 || number == 949) converters_ = std::make_unique<Converters>(EncodingName(number));
}

CodePage::~CodePage() = default;
CodePage::CodePage(CodePage&&) noexcept = default;
CodePage& CodePage::operator=(CodePage&&) noexcept = default;

CodePage CodePage::FromEnvironment() {
    const char* value = std::getenv(environmentName);
    return CodePage(value && *value != '\0' ? ParseNumber(value) : NumberOfLocale());
}

bool CodePage::IsDoubleByte(char32_t character) const {
    if (character < 0x80 || character > 0xFFFF || !converters_) return false;
    if (!converters_->known[character]) {
        converters_->doubleByte[character] = converters_->EncodesWithTwoBytes(character);
        converters_->known[character] = true;
    }
    return converters_->doubleByte[character];
}

std::optional<char32_t> CodePage::CharacterOf(std::uint16_t code) const {
    if (code < 0x100 || !converters_) return std::nullopt;
    const std::array<char, 2> input{static_cast<char>(code >> 8U), static_cast<char>(code & 0xFFU)};
    std::array<char, 8> output{};
    if (converters_->decode.Convert(input.data(), input.size(), output.data(), output.size()) != 4)
        return std::nullopt;
    char32_t character = 0;
    for (unsigned i = 0; i < 4; ++i) {
        character |= static_cast<char32_t>(static_cast<unsigned char>(output[i])) << (8 * i);
    }
    return character;
}

std::string CodePage::Decode(std::string_view bytes) const {
    // iconv lets numbers beyond the last character of Unicode through.
    if (number_ == utf8) return Encode(text::Decode(bytes));
    const Converter converter("UTF-8", EncodingName(number_));
    std::string decoded;
    while (!bytes.empty()) {
        if (converter.TakeSome(bytes, decoded)) continue;
        AppendEncoded(decoded, 0xFFFD);
        bytes.remove_prefix(1);
    }
    return decoded;
}

}  // namespace tessel::text
