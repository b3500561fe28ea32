#include "ui/rules/origin_text.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>

#include "platform/text/utf8.h"

namespace tessel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view noCharacter = "\xEF\xBF\xBD";
constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr std::string_view lineEnds = "\r\n";

const char* EncodingName(int codePage) {
    switch (codePage) {
        case 932:
            return "CP932";
        case 949:
            return "CP949";
        default:
            return "CP1252";
    }
}

class Decoder {
  public:
    explicit Decoder(int codePage) : descriptor_(iconv_open("UTF-8", EncodingName(codePage))) {}
    ~Decoder() { iconv_close(descriptor_); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    [[nodiscard]] std::string Decode(std::string_view bytes) const {
        std::string decoded;
        while (!bytes.empty()) {
            if (TakeSome(bytes, decoded)) continue;
            decoded += noCharacter;
            bytes.remove_prefix(1);
        }
        return decoded;
    }

  private:
    // Moves what converts from `bytes` to `decoded`; false at a byte that does not.
    bool TakeSome(std::string_view& bytes, std::string& decoded) const {
        char output[4096];
        char* in = const_cast<char*>(bytes.data());
        char* out = output;
        std::size_t left = bytes.size();
        std::size_t room = sizeof output;
        const bool converted =
            iconv(descriptor_, &in, &left, &out, &room) != static_cast<std::size_t>(-1) || errno == E2BIG;
        decoded.append(output, sizeof output - room);
        bytes.remove_prefix(bytes.size() - left);
        return converted;
    }

    iconv_t descriptor_;
};

std::string Decoded(std::string_view bytes, const text::CodePage& codePage) {
    constexpr int utf8 = 65001;
    // iconv lets numbers beyond the last character of Unicode through.
    if (codePage.Number() == utf8) return text::Encode(text::Decode(bytes));
    return Decoder(codePage.Number()).Decode(bytes);
}

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// At most `size` bytes, and no part of a character of UTF-8.
std::string_view WholeCharacters(std::string_view text, std::size_t size) {
    if (text.size() <= size) return text;
    while (size > 0 && IsContinuation(text[size])) --size;
    return text.substr(0, size);
}

std::string_view WholeLines(std::string_view text, std::size_t size) {
    if (text.size() <= size) return text;
    const auto end = text.substr(0, size).find_last_of(lineEnds);
    return end == std::string_view::npos ? WholeCharacters(text, size) : text.substr(0, end + 1);
}

OriginText WithShortLines(std::string_view text) {
    OriginText shortened;
    shortened.text.reserve(text.size());
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(lineEnds), text.size());
        const auto line = WholeCharacters(text.substr(0, end), longestOriginLine);
        shortened.text.append(line);
        if (line.size() < end) {
            shortened.text.append(ellipsis);
            shortened.isCut = true;
        }
        const auto next = std::min(text.find_first_not_of(lineEnds, end), text.size());
        shortened.text.append(text.substr(end, next - end));
        text.remove_prefix(next);
    }
    return shortened;
}

}  // namespace

OriginText ReadableText(std::string_view bytes, const text::CodePage& codePage) {
    const std::string_view part = WholeLines(bytes, longestOriginText);
    const bool isUtf8 = text::IsValidUtf8(part);
    OriginText readable = WithShortLines(isUtf8 ? part : Decoded(part, codePage));
    if (readable.text.starts_with(byteOrderMark)) readable.text.erase(0, byteOrderMark.size());
    if (part.size() < bytes.size()) readable.isCut = true;
    return readable;
}

}  // namespace tessel
