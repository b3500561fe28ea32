#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include "copy_statement.h"
#include "tokens.h"

namespace tessel::layout {

// Takes a file's content; why it cannot be read, if it cannot.
using FileReader = std::function<std::error_code(const std::string& path, std::string& content)>;

// Reads a file and, in place of each COPY in it, the file that it names.
class CopyReader {
  public:
    static constexpr std::size_t mostMegabytes = 16;  // over all files that are read
    static constexpr std::size_t mostWords = 200'000;
    static constexpr std::size_t mostComparisons = 20'000'000;  // of words with what replaces them
    static constexpr std::size_t deepest = 20;

    CopyReader(FileReader read, Format format, Remarks& remarks)
        : read_(std::move(read)), format_(format), remarks_(remarks) {}

    // Throws Complaint when the file or one that it copies cannot be read or is no text, or when they are too
    // large together. A copy that is not there is a remark.
    [[nodiscard]] Tokens Read(const std::string& path);

    [[nodiscard]] const std::vector<std::string>& Files() const { return files_; }

  private:
    [[nodiscard]] Tokens ReadContent(const std::string& path, const std::string& content);
    [[nodiscard]] Tokens Expanded(const Tokens& tokens, const std::string& path);
    [[nodiscard]] Tokens Copied(const Tokens& statement, const std::string& path);
    [[nodiscard]] Tokens CopiedFrom(const std::string& path, const std::string& content,
                                    const CopyStatement& copy);
    void CountBytes(std::size_t count);
    void CountWords(std::size_t count);
    void CountWork(std::size_t comparisons);
    [[nodiscard]] int NumberOf(const std::string& path);

    FileReader read_;
    Format format_;
    Remarks& remarks_;
    std::vector<std::string> files_;
    std::vector<std::string> open_;  // the file that is read, and those that it is copied into
    std::size_t bytes_ = 0;
    std::size_t words_ = 0;
    std::size_t comparisons_ = 0;
};

}  // namespace tessel::layout
