#include "source_lines.h"

#include <algorithm>
#include <array>
#include <limits>

#include "line_text.h"

namespace tessel::layout {

namespace {

constexpr std::size_t indicatorColumn = 7;
constexpr std::size_t firstColumn = 8;   // of the words of a fixed line
constexpr std::size_t afterColumn = 73;  // the first one that is the programmer's own again
constexpr std::size_t codeWidth = afterColumn - firstColumn;
constexpr std::size_t longestFixedLine = 80;
constexpr std::size_t everyColumn = std::numeric_limits<std::size_t>::max();

bool IsQuote(char character) { return character == '"' || character == '\''; }

bool IsIndicator(std::string_view column) {
    return column.empty() || std::string_view(" *-/Dd$").find(column) != std::string_view::npos;
}

// How a line looks: 1 like the free format, -1 like the fixed one, 0 like either.
int FreeLook(std::string_view line) {
    const std::string_view code = TrimmedLeft(line);
    if (code.empty()) return 0;
    if (!Columns(line, longestFixedLine + 1, everyColumn).empty()) return 1;
    const std::size_t start = line.size() - code.size() + 1;
    if (start > indicatorColumn) return 0;
    const std::string_view word = code.substr(0, code.find(' '));
    const bool isLevel = IsNumber(word) && word.size() <= 2 && word.size() < code.size();
    const bool isFreeComment = word.starts_with("*>") && start < indicatorColumn;
    return isLevel || isFreeComment || !IsIndicator(Columns(line, indicatorColumn, firstColumn)) ? 1 : -1;
}

bool LooksFree(const std::vector<std::string>& lines) {
    int sum = 0;
    for (const auto& line : lines) sum += FreeLook(line);
    return sum > 0;
}

// Words that only steer the printed listing.
bool IsListingWord(std::string_view code) {
    constexpr std::array<std::string_view, 4> words{"EJECT", "SKIP1", "SKIP2", "SKIP3"};
    std::string word = Upper(Trimmed(code));
    if (word.ends_with('.')) word.pop_back();
    return std::ranges::find(words, word) != words.end();
}

class Joiner {
  public:
    Joiner(int file, Format format, Remarks& remarks) : format_(format), remarks_(remarks) {
        joined_.file = file;
    }

    void Read(const std::string& line) {
        ++line_;
        if (Trimmed(line).empty()) return;
        const std::string_view code =
            TrimmedLeft(format_ == Format::Fixed ? Columns(line, indicatorColumn, everyColumn) : line);
        if (code.starts_with(">>"))
            ReadDirective(code);
        else if (format_ == Format::Fixed)
            ReadFixed(line);
        else if (!code.starts_with('*') && !code.starts_with('/'))
            Append(line, awaitsFreeContinuation_);
    }

    SourceText Take() { return std::move(joined_); }

  private:
    void Blame(Text text, std::vector<std::string> details = {}) {
        remarks_.Add({joined_.file, line_}, text, std::move(details));
    }

    void ReadDirective(std::string_view code) {
        const std::string directive = Upper(code);
        const bool isFormat = directive.find("SOURCE") != std::string::npos;
        if (isFormat && directive.find("FREE") != std::string::npos)
            format_ = Format::Free;
        else if (isFormat && directive.find("FIXED") != std::string::npos)
            format_ = Format::Fixed;
        else
            Blame(directive.starts_with(">>D ") ? Text::DebuggingLine : Text::Directive,
                  {Shortened(std::string(code))});
    }

    void ReadFixed(const std::string& line) {
        const std::string_view indicator = Columns(line, indicatorColumn, firstColumn);
        const std::string_view code = Columns(line, firstColumn, afterColumn);
        if (indicator.empty()) {
            if (!IsNumber(Trimmed(line))) Blame(Text::ShortLine);
        } else if (indicator == " " || indicator == "-") {
            Append(code, indicator == "-" && mayContinue_);
        } else if (indicator == "D" || indicator == "d") {
            Blame(Text::DebuggingLine);
        } else if (indicator == "$") {
            Blame(Text::Directive, {Shortened(std::string(Trimmed(code)))});
        } else if (indicator != "*" && indicator != "/") {
            Blame(Text::BadIndicator, {std::string(indicator)});
        }
    }

    // The words up to a comment; finds out whether a literal stays open at their end.
    std::string_view WithoutComment(std::string_view code) {
        for (std::size_t i = 0; i < code.size(); ++i) {
            if (quote_ != 0)
                quote_ = code[i] == quote_ ? '\0' : quote_;
            else if (IsQuote(code[i]))
                quote_ = code[i];
            else if (code.substr(i).starts_with("*>") && (i == 0 || code[i - 1] == ' '))
                return code.substr(0, i);
        }
        return code;
    }

    void Append(std::string_view code, bool isContinuation) {
        if (Trimmed(code).empty() || IsListingWord(code)) return;
        const std::size_t width = ColumnCount(code);
        if (isContinuation)
            code = Continue(code);
        else
            quote_ = '\0';
        joined_.lines.emplace_back(joined_.text.size(), line_);
        blanksToEnd_ = codeWidth - std::min(width, codeWidth);
        std::string_view words = WithoutComment(code);
        awaitsFreeContinuation_ = EndsInFreeContinuation(words);
        joined_.text += words;
        joined_.text += '\n';
        mayContinue_ = true;
    }

    // A literal that is closed by a quote and a hyphen goes on in the next line of free format.
    bool EndsInFreeContinuation(std::string_view& words) {
        const std::string_view text = Trimmed(words);
        const bool ends = format_ == Format::Free && quote_ == '\0' && text.size() > 2 &&
                          text.back() == '-' && IsQuote(text[text.size() - 2]);
        if (ends) {
            quote_ = text[text.size() - 2];
            words.remove_suffix(words.size() - words.rfind(quote_));
        }
        return ends;
    }

    // Takes the end off the line before and the lead-in off this one, so that the two fit together.
    std::string_view Continue(std::string_view code) {
        code = TrimmedLeft(code);
        joined_.text.pop_back();
        if (quote_ == '\0') {
            joined_.text.erase(joined_.text.find_last_not_of(' ') + 1);
            return code;
        }
        // What goes on reaches to the last column of its line.
        if (format_ == Format::Fixed) joined_.text.append(blanksToEnd_, ' ');
        if (!code.empty() && code.front() == quote_) code.remove_prefix(1);
        return code;
    }

    Format format_;
    Remarks& remarks_;
    SourceText joined_;
    int line_ = 0;
    char quote_ = '\0';            // of the literal that is open at the end of the line before
    std::size_t blanksToEnd_ = 0;  // of that line
    bool mayContinue_ = false;
    bool awaitsFreeContinuation_ = false;
};

}  // namespace

Place SourceText::At(std::size_t offset) const {
    auto line = std::ranges::upper_bound(lines, offset, {}, [](const auto& entry) { return entry.first; });
    return {file, line == lines.begin() ? 1 : std::prev(line)->second};
}

SourceText ReadSource(std::string_view content, int file, Format format, Remarks& remarks) {
    bool wasUtf8 = true;
    const std::vector<std::string> lines = SplitLines(ToUtf8(content, wasUtf8));
    if (!wasUtf8) remarks.Add({file, 1}, Text::NotUtf8);
    if (format == Format::Auto) format = LooksFree(lines) ? Format::Free : Format::Fixed;
    Joiner joiner(file, format, remarks);
    for (const auto& line : lines) joiner.Read(line);
    return joiner.Take();
}

bool IsText(std::string_view content) {
    constexpr std::size_t tolerated = 20;  // one control character in so many bytes
    std::size_t controls = 0;
    for (const char character : content) {
        if (character == '\0') return false;
        const bool isUsual = character == '\t' || character == '\r' || character == '\n' || character == '\f';
        controls += static_cast<unsigned char>(character) < ' ' && !isUsual;
    }
    return controls * tolerated <= content.size();
}

}  // namespace tessel::layout
