#include "copy_reader.h"

#include <algorithm>

#include "line_text.h"

namespace tessel::layout {

namespace {

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& character : lower)
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
    return lower;
}

// The files that a COPY may mean, the likeliest first.
std::vector<std::string> Candidates(const std::string& name) {
    std::vector<std::string> candidates;
    for (const auto& base : {name, Lower(name), Upper(name)})
        for (const char* suffix : {"", ".cpy", ".CPY", ".cbl", ".CBL", ".cob", ".COB"})
            candidates.push_back(base + suffix);
    return candidates;
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// Whether there is no file of the name, as opposed to one that cannot be read.
bool IsAbsence(const std::error_code& failure) {
    return failure == std::errc::no_such_file_or_directory || failure == std::errc::is_a_directory ||
           failure == std::errc::filename_too_long;
}

// A name that leads into no other folder.
bool IsPlainName(const std::string& name) {
    return !name.empty() && name.find_first_of("/\\") == std::string::npos && name != "." && name != "..";
}

// The statement's words as they might be shown.
std::string Shown(const Tokens& statement) {
    std::string text;
    for (const auto& token : statement) AppendWord(text, token);
    return Shortened(text);
}

}  // namespace

Tokens CopyReader::Read(const std::string& path) {
    std::string content;
    if (const auto failure = read_(path, content))
        throw Complaint(Text::FileUnreadable, {path, failure.message()});
    return ReadContent(path, content);
}

Tokens CopyReader::ReadContent(const std::string& path, const std::string& content) {
    if (!IsText(content)) throw Complaint(Text::NoTextFile, {path});
    const int number = NumberOf(path);
    CountBytes(content.size());
    const Tokens tokens = Tokenize(ReadSource(content, number, format_, remarks_), remarks_);
    CountWords(tokens.size());
    open_.push_back(path);
    Tokens expanded = Expanded(tokens, path);
    open_.pop_back();
    return expanded;
}

Tokens CopyReader::Expanded(const Tokens& tokens, const std::string& path) {
    Tokens result;
    for (auto token = tokens.begin(); token != tokens.end();) {
        if (!Is(*token, "COPY")) {
            result.push_back(*token++);
            continue;
        }
        const auto end = std::find_if(token, tokens.end(), [](const Token& candidate) {
            return candidate.kind == Token::Kind::Period;
        });
        for (auto& copied : Copied({token, end}, path)) result.push_back(std::move(copied));
        token = end == tokens.end() ? end : end + 1;
    }
    return result;
}

Tokens CopyReader::Copied(const Tokens& statement, const std::string& path) {
    const Place place = statement.front().place;
    const auto copy = ReadCopyStatement(statement, remarks_);
    const auto refuse = [&](Text text, const std::string& detail) {
        remarks_.Add(place, text, {detail});
        return Tokens{};
    };
    if (!copy) return refuse(Text::CopyUnclear, Shown(statement));
    if (!IsPlainName(copy->name)) return refuse(Text::CopyNotFound, copy->name);
    if (open_.size() >= deepest) return refuse(Text::CopyTooDeep, copy->name);
    for (const auto& candidate : Candidates(copy->name)) {
        const std::string file = FolderOf(path) + candidate;
        if (std::ranges::find(open_, file) != open_.end()) return refuse(Text::CopyCycle, copy->name);
        std::string content;
        const auto failure = read_(file, content);
        if (!failure) return CopiedFrom(file, content, *copy);
        if (!IsAbsence(failure)) throw Complaint(Text::FileUnreadable, {file, failure.message()});
    }
    return refuse(Text::CopyNotFound, copy->name);
}

Tokens CopyReader::CopiedFrom(const std::string& path, const std::string& content,
                              const CopyStatement& copy) {
    const Tokens tokens = ReadContent(path, content);
    if (copy.replacements.empty()) return tokens;
    CountWork(tokens.size() * copy.replacements.size());
    Tokens replaced = Replaced(tokens, copy.replacements, mostWords);
    CountWords(replaced.size());
    return replaced;
}

void CopyReader::CountBytes(std::size_t count) {
    bytes_ += count;
    if (bytes_ > mostMegabytes * 1'000'000)
        throw Complaint(Text::TooLarge, {files_.front(), std::to_string(mostMegabytes)});
}

void CopyReader::CountWords(std::size_t count) {
    words_ += count;
    if (words_ > mostWords) throw Complaint(Text::TooManyWords, {files_.front(), std::to_string(mostWords)});
}

void CopyReader::CountWork(std::size_t comparisons) {
    comparisons_ += comparisons;
    if (comparisons_ > mostComparisons)
        throw Complaint(Text::TooManyWords, {files_.front(), std::to_string(mostWords)});
}

int CopyReader::NumberOf(const std::string& path) {
    const auto known = std::ranges::find(files_, path);
    if (known != files_.end()) return static_cast<int>(known - files_.begin());
    files_.push_back(path);
    return static_cast<int>(files_.size()) - 1;
}

}  // namespace tessel::layout
