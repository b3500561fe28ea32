#pragma once

#include <string>
#include <string_view>

#include "platform/files/descriptor.h"

namespace tessel {

// An HTML page on its way to its file, written in large pieces. Failures throw ErrorKind::File, Full or
// ReadOnly. What was written before a page is given up stays in its file.
class PageFile {
  public:
    explicit PageFile(std::string_view path);  // in place of an earlier file
    ~PageFile();
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;

    void Line(std::string_view text);  // and a line end, CR LF
    void Put(std::string_view text);   // part of a line

    void Close();  // everything is in the file afterwards

  private:
    void Flush();
    [[noreturn]] void Fail(int cause) const;

    std::string path_;
    files::Descriptor file_;
    std::string pending_;
};

}  // namespace tessel
