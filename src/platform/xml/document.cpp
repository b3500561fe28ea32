#include "platform/xml/document.h"

#include <algorithm>
#include <charconv>
#include <pugixml.hpp>
#include <sstream>

#include "platform/files/file_service.h"
#include "platform/text/utf8.h"
#include "platform/xml/characters.h"
#include "platform/xml/query.h"
#include "tessel/error.h"

namespace tessel::xml {
namespace {

// The declaration is left out because saving writes its own, for UTF-8; a blank text between tags is content.
constexpr unsigned parseOptions = pugi::parse_default | pugi::parse_fragment | pugi::parse_comments |
                                  pugi::parse_pi | pugi::parse_doctype | pugi::parse_ws_pcdata_single;

// Whoever reads a document walks it by recursion.
constexpr int deepest = 200;

[[noreturn]] void FailAt(std::string_view name, std::string_view text, std::ptrdiff_t offset,
                         const std::string& reason) {
    const auto before = text.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)));
    const auto line = std::ranges::count(before, '\n') + 1;
    throw Error(ErrorKind::Xml, std::string(name) + ", line " + std::to_string(line) + ": " + reason + ".");
}

bool IsContent(const pugi::xml_node& node) {
    return node.type() == pugi::node_element || node.type() == pugi::node_cdata ||
           (node.type() == pugi::node_pcdata &&
            std::string_view(node.value()).find_first_not_of(" \t\r\n") != std::string_view::npos);
}

void RequireOneRoot(const pugi::xml_document& document, std::string_view text, std::string_view name) {
    const auto root = document.document_element();
    if (!root) FailAt(name, text, 0, "the document has no root element");
    for (const auto& node : document.children()) {
        if (IsContent(node) && node != root) {
            FailAt(name, text, node.offset_debug(), "the document goes on outside its root element");
        }
    }
}

bool CanBeHeld(const pugi::xml_node& node) {
    const auto isHeld = [](const pugi::xml_attribute& attribute) {
        return xml::CanBeHeld(attribute.name()) && xml::CanBeHeld(attribute.value());
    };
    return xml::CanBeHeld(node.name()) && xml::CanBeHeld(node.value()) &&
           std::ranges::all_of(node.attributes(), isHeld);
}

// Calls act(node, depth); the root element is at depth 1.
template <typename Act>
void ForEachNode(const pugi::xml_document& document, const Act& act) {
    int depth = 1;
    for (auto node = document.first_child(); node;) {
        act(node, depth);
        if (node.first_child()) {
            node = node.first_child();
            ++depth;
            continue;
        }
        for (; node && !node.next_sibling(); --depth) node = node.parent();
        if (node) node = node.next_sibling();
    }
}

// What is read can be walked, and written again.
void CheckNodes(const pugi::xml_document& document, std::string_view text, std::string_view name) {
    ForEachNode(document, [&](const pugi::xml_node& node, int depth) {
        if (depth > deepest && node.type() == pugi::node_element)
            FailAt(name, text, node.offset_debug(), "the document is nested too deeply");
        if (!CanBeHeld(node))
            FailAt(name, text, node.offset_debug(), "the document holds a control character");
    });
}

// Whether a number after "&#" stands for no character: zero, or one past the last.
bool IsNoCharacter(std::string_view reference) {
    const int base = reference.starts_with('x') ? 16 : 10;
    if (base == 16) reference.remove_prefix(1);
    unsigned number = 0;
    const auto [end, fault] =
        std::from_chars(reference.data(), reference.data() + reference.size(), number, base);
    return fault == std::errc::result_out_of_range ||
           (fault == std::errc() && *end == ';' && (number == 0 || number > 0x10FFFF));
}

bool RefersToNoCharacter(std::string_view text) {
    for (auto at = text.find("&#"); at != text.npos; at = text.find("&#", at + 2))
        if (IsNoCharacter(text.substr(at + 2))) return true;
    return false;
}

// A reference to no character would end the text around it. What is left of it cannot be told once references
// are resolved.
void CheckReferences(std::string_view text, std::string_view name) {
    pugi::xml_document document;
    if (!document.load_buffer(text.data(), text.size(), parseOptions & ~pugi::parse_escapes)) return;
    ForEachNode(document, [&](const pugi::xml_node& node, int) {
        const auto isWrong = [](const pugi::xml_attribute& attribute) {
            return RefersToNoCharacter(attribute.value());
        };
        if ((node.type() == pugi::node_pcdata && RefersToNoCharacter(node.value())) ||
            std::ranges::any_of(node.attributes(), isWrong))
            FailAt(name, text, node.offset_debug(), "the document refers to what is no character");
    });
}

}  // namespace

struct Document::Implementation {
    pugi::xml_document document;
};

Document::Document() : implementation_(std::make_unique<Implementation>()) {}
Document::~Document() = default;
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;

Document Document::Load(const std::string& path) { return Parse(files::ReadFile(path), path); }

Document Document::Parse(std::string_view text, std::string_view name) {
    Document parsed;
    auto& document = parsed.implementation_->document;
    const auto result = document.load_buffer(text.data(), text.size(), parseOptions);
    if (!result) FailAt(name, text, result.offset, result.description());
    if (result.encoding == pugi::encoding_utf8 && !text::IsValidUtf8(text)) {
        FailAt(name, text, 0, "the document is not in UTF-8");
    }
    RequireOneRoot(document, text, name);
    CheckNodes(document, text, name);
    if (result.encoding != pugi::encoding_utf8 || text.find("&#") != text.npos) CheckReferences(text, name);
    return parsed;
}

Element Document::Root() const {
    return Element(implementation_->document.document_element().internal_object());
}

Element Document::AppendRoot(std::string_view name) {
    if (Root()) throw Error(ErrorKind::Xml, "The document has a root element already.");
    return Element(implementation_->document.append_child(std::string(name).c_str()).internal_object());
}

Element Document::SelectSingleNode(std::string_view xpath) const {
    return Element(SelectElement(implementation_->document.internal_object(), xpath));
}

std::string Document::Text() const {
    std::ostringstream text;
    implementation_->document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.str();
}

void Document::Save(const std::string& path) const { files::ReplaceFile(path, Text()); }

}  // namespace tessel::xml
