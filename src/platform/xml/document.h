#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// XML documents with XPath. Everything that is read is kept, comments and unknown elements too. Neither
// external entities nor document types are ever expanded.
namespace tessel::xml {

class Document;

// An element of a document, valid while the document lives; the empty element is none at all.
class Element {
  public:
    Element() = default;

    explicit operator bool() const { return node_ != nullptr; }
    bool operator==(const Element&) const = default;

    [[nodiscard]] std::string Name() const;
    [[nodiscard]] std::optional<std::string> Attribute(
        std::string_view name) const;  // nothing when it is not there
    void SetAttribute(std::string_view name, std::string_view value);

    [[nodiscard]] std::vector<Element> Children() const;
    Element AppendChild(std::string_view name);
    void Remove();  // takes the element out of its document

    // The first element that the XPath selects, from here; the empty element when there is none. A path that
    // is no XPath throws ErrorKind::Xml.
    [[nodiscard]] Element SelectSingleNode(std::string_view xpath) const;

  private:
    friend class Document;
    explicit Element(void* node) : node_(node) {}
    void* node_ = nullptr;
};

class Document {
  public:
    Document();  // empty but for a root element of its own making through AppendRoot
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;

    // Throw ErrorKind::Xml, saying file (or `name`), line and reason, also for control characters and for
    // elements nested more than 200 deep; Load also ErrorKind::File.
    [[nodiscard]] static Document Load(const std::string& path);
    [[nodiscard]] static Document Parse(std::string_view text, std::string_view name);

    [[nodiscard]] Element Root() const;
    Element AppendRoot(std::string_view name);
    [[nodiscard]] Element SelectSingleNode(std::string_view xpath) const;

    // The document as UTF-8 text with an XML declaration, indented by two blanks.
    [[nodiscard]] std::string Text() const;
    void Save(const std::string& path) const;  // as files::ReplaceFile does

  private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

}  // namespace tessel::xml
