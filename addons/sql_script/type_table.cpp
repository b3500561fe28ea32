#include "sql_script/type_table.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "sql_script/text_tools.h"
#include "tessel/error.h"

namespace tessel::sql_script {

namespace {

constexpr std::int32_t anySize = std::numeric_limits<std::int32_t>::max();
constexpr std::string_view precisionMark = "{p}";
constexpr std::string_view scaleMark = "{s}";

std::vector<std::string_view> CellsOf(std::string_view line) {
    std::vector<std::string_view> cells;
    for (bool more = true; more;) {
        more = line.find('|') != std::string_view::npos;
        cells.push_back(Trim(NextPart(line, '|')));
    }
    return cells;
}

bool ReadNumber(std::string_view text, std::int32_t& number) {
    text = Trim(text);
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    return fault == std::errc() && end == text.data() + text.size() && number >= 0;
}

// Whether it is words with at most one pair of parentheses, the marks within.
bool IsTemplate(std::string_view type) {
    const auto open = type.find('(');
    const auto close = type.find(')');
    if (type.empty() || std::ranges::count(type, '(') > 1 || std::ranges::count(type, ')') > 1) return false;
    if ((open == std::string_view::npos) != (close == std::string_view::npos)) return false;
    std::string plain = ReplaceAll(std::string(type), precisionMark, "");
    plain = ReplaceAll(plain, scaleMark, "");
    const auto marks = type.find('{');
    return plain.find_first_of("{}'\"`") == std::string::npos &&
           (marks == std::string_view::npos || (open < marks && type.rfind('}') < close));
}

// The type for a precision and a scale, of which 0 means none.
std::string Filled(std::string type, std::int32_t precision, std::int32_t scale) {
    const auto mark = type.find(precisionMark);
    if (mark != std::string::npos && precision == 0) {
        const auto open = type.rfind('(', mark);
        type.erase(open, type.find(')', open) + 1 - open);
    }
    if (const auto at = type.find(scaleMark); at != std::string::npos && scale == 0) {
        const auto comma = std::min(type.rfind(',', at), at);
        type.erase(comma, at + scaleMark.size() - comma);
    }
    type = ReplaceAll(std::move(type), precisionMark, std::to_string(precision));
    return ReplaceAll(std::move(type), scaleMark, std::to_string(scale));
}

}  // namespace

// The line that is read, for what is said of it.
struct TypeTable::Source {
    const std::string& file;
    Language language;
    int line;

    [[noreturn]] void Refuse(Text text, const std::vector<std::string>& parameters) const {
        throw Error(ErrorKind::File, Say(language, Text::TypeLine,
                                         {file, std::to_string(line), Say(language, text, parameters)}));
    }
};

TypeTable::TypeTable(std::string_view text, const std::string& file, const Dialect& dialect,
                     Language language) {
    Source source{file, language, 0};
    while (!text.empty()) {
        ++source.line;
        const auto line = Trim(NextPart(text, '\n'));
        if (line.empty() || line.front() == '#') continue;
        auto cells = CellsOf(line);
        if (place_ != 0) {
            ReadLine(source, std::move(cells));
            continue;
        }
        width_ = cells.size();
        place_ = static_cast<std::size_t>(std::ranges::find(cells, dialect.name) - cells.begin());
        if (cells.front() != "type" || place_ == width_) source.Refuse(Text::TypeHeading, {dialect.name});
    }
    if (place_ == 0) source.Refuse(Text::TypeHeading, {dialect.name});
    if (!types_.contains("*")) source.Refuse(Text::TypeOther, {});
}

void TypeTable::ReadLine(const Source& source, std::vector<std::string_view> cells) {
    if (cells.size() != width_)
        source.Refuse(Text::TypeCells, {std::to_string(cells.size()), std::to_string(width_)});
    for (std::size_t i = 1; i < cells.size(); ++i) {
        auto alternatives = ReadCell(source, cells[i]);
        if (i == place_ && !types_.emplace(UpperAscii(cells.front()), std::move(alternatives)).second)
            source.Refuse(Text::TypeTwice, {std::string(cells.front())});
    }
}

std::vector<TypeTable::Alternative> TypeTable::ReadCell(const Source& source, std::string_view cell) {
    std::vector<Alternative> alternatives;
    do alternatives.push_back(ReadAlternative(source, Trim(NextPart(cell, ';'))));
    while (!cell.empty());
    return alternatives;
}

TypeTable::Alternative TypeTable::ReadAlternative(const Source& source, std::string_view text) {
    constexpr std::string_view limitWord = " to ";
    Alternative alternative{"", anySize, anySize};
    const auto limit = text.find(limitWord);
    if (limit != std::string_view::npos) {
        std::string_view sizes = text.substr(limit + limitWord.size());
        const std::string written(Trim(sizes));
        const bool isRead = ReadNumber(NextPart(sizes, ','), alternative.mostPrecision) &&
                            (sizes.empty() || ReadNumber(sizes, alternative.mostScale));
        if (!isRead) source.Refuse(Text::TypeLimit, {written});
    }
    alternative.type = Trim(text.substr(0, limit));
    if (!IsTemplate(alternative.type)) source.Refuse(Text::TypeTemplate, {alternative.type});
    return alternative;
}

std::optional<std::string> TypeTable::TypeFor(const Column& column) const {
    const auto found = types_.find(UpperAscii(column.typeName));
    if (found == types_.end()) return {};
    for (const auto& alternative : found->second)
        if (column.precision <= alternative.mostPrecision && column.scale <= alternative.mostScale)
            return Filled(alternative.type, column.precision, column.scale);
    return {};
}

std::string TypeTable::OtherType() const { return Filled(types_.at("*").front().type, 0, 0); }

}  // namespace tessel::sql_script
