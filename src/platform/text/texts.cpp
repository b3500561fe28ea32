#include "platform/text/texts.h"

#include <array>
#include <fstream>
#include <utility>

#include "platform/text/locale.h"
#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel::text {
namespace {

constexpr std::array<std::pair<char, char>, 4> escapes{{{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'\\', '\\'}}};

// Reads the lines of one file and knows where it is, for its errors.
class LineReader {
  public:
    explicit LineReader(const std::string& path) : path_(path), stream_(path) {
        if (!stream_) throw Error(ErrorKind::File, "The texts file " + path_ + " cannot be opened.");
    }

    bool Next(std::string& line) {
        ++number_;
        if (std::getline(stream_, line)) return true;
        if (stream_.bad()) Fail("cannot be read");
        return false;
    }

    [[noreturn]] void Fail(const std::string& reason) const {
        throw Error(ErrorKind::File,
                    path_ + ", line " + std::to_string(number_) + ": the text " + reason + ".");
    }

  private:
    std::string path_;
    std::ifstream stream_;
    int number_ = 0;
};

char Unescaped(char letter, const LineReader& reader) {
    for (const auto& [name, character] : escapes) {
        if (name == letter) return character;
    }
    reader.Fail(R"(holds a '\' that is none of \n, \r, \t and \\)");
}

std::string Unescape(std::string_view written, const LineReader& reader) {
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (written[i] != '\\') {
            text += written[i];
        } else {
            ++i;
            text += Unescaped(i < written.size() ? written[i] : '\0', reader);
        }
    }
    return text;
}

void AddLine(const std::string& line, const LineReader& reader,
             std::unordered_map<std::string, std::string>& texts) {
    if (line.empty() || line.front() == '#') return;
    if (!IsValidUtf8(line)) reader.Fail("is not UTF-8");
    const auto blank = line.find(' ');
    if (blank == std::string::npos) reader.Fail("has no blank after its number");
    const auto name = line.substr(0, blank);
    if (!texts.emplace(name, Unescape(std::string_view(line).substr(blank + 1), reader)).second) {
        reader.Fail("has the number " + name + ", which is taken above");
    }
}

}  // namespace

Texts::Texts(const std::string& folder, std::string_view language) : language_(language) {
    LineReader reader(folder + "/" + language_ + ".txt");
    for (std::string line; reader.Next(line);) AddLine(line, reader, texts_);
}

const std::string& Texts::Text(int number) const { return Product(std::to_string(number)); }

const std::string& Texts::Product(std::string_view name) const {
    const auto text = texts_.find(std::string(name));
    if (text != texts_.end()) return text->second;
    throw Error(ErrorKind::Host,
                "There is no text " + std::string(name) + " in the language '" + language_ + "'.");
}

std::string Texts::Format(int number, std::initializer_list<std::string_view> arguments) const {
    return FormatText(Text(number), arguments);
}

std::string FormatText(std::string_view text, std::initializer_list<std::string_view> arguments) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto digit = i + 1 < text.size() ? text[i + 1] : '\0';
        const auto position = static_cast<std::size_t>(digit - '1');
        if (text[i] == '%' && digit >= '1' && digit <= '9' && position < arguments.size()) {
            result += arguments.begin()[position];
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string LanguageOfLocale() {
    const auto language = LocaleLanguage("LC_MESSAGES");
    return language == "ja" || language == "ko" ? language : "en";
}

}  // namespace tessel::text
