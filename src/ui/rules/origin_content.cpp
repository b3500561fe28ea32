#include "ui/rules/origin_content.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

#include "platform/files/file_service.h"
#include "platform/text/utf8.h"
#include "schema/sql_text.h"
#include "tessel/error.h"
#include "ui/rules/origin_text.h"

namespace tessel {

namespace {

namespace fs = std::filesystem;

constexpr int noTitleText = 2150;
constexpr int labelText = 2151;
constexpr int typeText = 2152;
constexpr int noFileText = 2153;
constexpr int unreadableText = 2154;
constexpr int outsideText = 2155;
constexpr int noObjectText = 2156;
constexpr int noSourceText = 2157;
constexpr int unknownText = 2158;
constexpr int cutText = 2159;

constexpr std::string_view textPrefix = "text:";
constexpr std::string_view objectPrefix = "obj:";
constexpr std::size_t longestLineNumber = 9;

// Takes ":LINE" off the end of the place; 0 when there is none.
int TakeLine(std::string& place) {
    const auto colon = place.rfind(':');
    if (colon == std::string::npos) return 0;
    const std::string digits = place.substr(colon + 1);
    const bool isNumber = !digits.empty() && digits.size() <= longestLineNumber &&
                          digits.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber) return 0;
    place.resize(colon);
    return std::stoi(digits);
}

std::string FileName(const std::string& path) { return path.substr(path.find_last_of("\\/") + 1); }

// The file at the path from the folder on; nothing when the path leads out of it, also through a link.
std::optional<std::string> FileBelow(const std::string& folder, std::string path) {
    std::ranges::replace(path, '\\', '/');
    const fs::path root = fs::weakly_canonical(folder);
    const fs::path file = fs::weakly_canonical(root / path);
    const fs::path inside = file.lexically_relative(root);
    if (inside.empty() || *inside.begin() == "..") return std::nullopt;
    return file.string();
}

// One byte more than is shown tells that there are more.
std::string FirstBytes(const std::string& file) {
    std::ifstream input(file, std::ios::binary);
    std::string bytes(longestOriginText + 1, '\0');
    input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!input.is_open() || input.bad())
        throw Error(ErrorKind::File, "The file " + file + " cannot be read.");
    bytes.resize(static_cast<std::size_t>(input.gcount()));
    return bytes;
}

class OriginReader {
  public:
    explicit OriginReader(ComponentState& state) : state_(state), texts_(*state.texts) {}

    OriginContent Read(const std::string& reference) {
        content_.title = reference.empty() ? texts_.Text(noTitleText) : reference;
        std::string place = reference.substr(std::min(reference.find(':') + 1, reference.size()));
        const int line = TakeLine(place);
        if (reference.starts_with(textPrefix))
            ReadSource(place);
        else if (reference.starts_with(objectPrefix))
            ReadObject(place);
        else if (!reference.empty())
            content_.notice = texts_.Format(unknownText, {reference});
        if (!content_.text.empty()) content_.line = line;
        return std::move(content_);
    }

  private:
    void ReadSource(const std::string& path) {
        content_.title = path.empty() ? texts_.Text(noTitleText) : FileName(path);
        if (path.empty()) {
            content_.notice = texts_.Text(noSourceText);
            return;
        }
        try {
            ShowFile(path);
        } catch (const std::exception& error) {
            content_.notice = texts_.Format(unreadableText, {path, error.what()});
        }
    }

    void ShowFile(const std::string& path) {
        const auto file = FileBelow(state_.Frontend().GetCorvaneName(host::name_item::workspaceFolder), path);
        if (!file)
            content_.notice = texts_.Format(outsideText, {path});
        else if (!files::FileExists(*file))
            content_.notice = texts_.Format(noFileText, {path});
        else
            ShowText(FirstBytes(*file));
    }

    void ShowText(const std::string& bytes) {
        OriginText readable = ReadableText(bytes, *state_.codePage);
        content_.text = std::move(readable.text);
        if (readable.isCut) content_.notice = texts_.Text(cutText);
    }

    void ReadObject(const std::string& identifier) {
        content_.title = identifier.empty() ? texts_.Text(noTitleText) : identifier;
        try {
            ShowAttributes(*state_.Frontend().RepositoryOf()->ObjectById(identifier));
        } catch (const Error&) {
            content_.notice = texts_.Format(noObjectText, {identifier});
            return;
        }
        ShowSourceOf(identifier);
    }

    void ShowAttributes(const host::RepositoryObject& object) {
        try {
            content_.title = object.Label();
        } catch (const Error&) {  // an object without a label goes by its identifier
        }
        content_.attributes = {{texts_.Text(labelText), content_.title},
                               {texts_.Text(typeText), object.TypeName()}};
        for (const auto& name : object.AttributeNames())
            content_.attributes.emplace_back(name, NullToText(object.Attribute(name)));
    }

    void ShowSourceOf(std::string identifier) {
        try {
            if (LocateOriginSource(state_.originSource, state_.Frontend(), identifier))
                return ShowText(state_.originSource.source->Text());
            content_.notice = texts_.Text(noSourceText);
        } catch (const Error& error) {
            content_.notice = texts_.Format(unreadableText, {content_.title, error.what()});
        }
    }

    ComponentState& state_;
    const text::Texts& texts_;
    OriginContent content_;
};

}  // namespace

OriginContent ReadOrigin(ComponentState& state, const std::string& reference) {
    return OriginReader(state).Read(reference);
}

}  // namespace tessel
