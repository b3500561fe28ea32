#pragma once

#include <QIcon>
#include <QString>
#include <initializer_list>
#include <map>

namespace tessel {

// Icons under keys, as lists, toolbars and diagrams name them.
class ImageList {
  public:
    ImageList() = default;
    // Icons of the program's own, each drawn in the resource of its name: {"NewTable", "new_table"}.
    ImageList(std::initializer_list<std::pair<const char*, const char*>> icons);

    [[nodiscard]] QIcon Icon(const QString& key) const;  // empty for an unknown key

    // Puts the SVG file's icon under the key, in place of an earlier one.
    void Add(const QString& key, const QString& path);

  private:
    std::map<QString, QIcon> icons_;
};

// The program's own lists, made anew at each call.
[[nodiscard]] ImageList BrowserImages();  // of lists of tables, columns, indexes and keys
[[nodiscard]] ImageList ToolbarImages();
[[nodiscard]] ImageList ErrorImages();
[[nodiscard]] ImageList DiagramImages();

[[nodiscard]] QIcon ProductIcon();
[[nodiscard]] QIcon BlankIcon();  // which keeps the place of one, so that texts stand in line

}  // namespace tessel
