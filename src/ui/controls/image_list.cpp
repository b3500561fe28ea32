#include "ui/controls/image_list.h"

#include "ui/controls/svg_icon.h"

// Only outside every namespace can the resource of a static library be asked for.
static void LoadIcons() { Q_INIT_RESOURCE(icons); }

namespace tessel {

namespace {

constexpr int largestIcon = 64;

QIcon OwnIcon(const char* name) {
    LoadIcons();
    return SvgIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}

}  // namespace

ImageList::ImageList(std::initializer_list<std::pair<const char*, const char*>> icons) {
    for (const auto& [key, name] : icons) icons_[key] = OwnIcon(name);
}

QIcon ImageList::Icon(const QString& key) const {
    const auto found = icons_.find(key);
    return found == icons_.end() ? QIcon() : found->second;
}

void ImageList::Add(const QString& key, const QString& path) { icons_[key] = SvgIcon(path); }

ImageList BrowserImages() {
    return {{"tables", "tables"},   {"files", "files"},     {"file", "file"},     {"table", "table"},
            {"key", "key"},         {"foreign", "foreign"}, {"record", "record"}, {"map", "map"},
            {"notnull", "notnull"}, {"index", "index"},     {"index1", "index1"}, {"up", "up"},
            {"down", "down"}};
}

ImageList ToolbarImages() {
    return {{"Diagram", "diagram"},
            {"NewTable", "new_table"},
            {"NewFile", "new_file"},
            {"Verify", "verify"},
            {"DataImport", "data_import"},
            {"TableImport", "table_import"},
            {"Lock", "lock"},
            {"Zoom", "zoom"},
            {"Save", "save"},
            {"Generate", "generate"},
            {"Execute", "execute"},
            {"Options", "options"},
            {"Report", "report"},
            {"Browser", "browser"}};
}

ImageList ErrorImages() { return {{"Table", "table"}, {"Column", "column"}, {"Key", "foreign"}}; }

ImageList DiagramImages() {
    return {{"Print", "print"},      {"Save", "save"},     {"Copy", "copy"}, {"Place", "place"},
            {"Zoom100", "zoom_100"}, {"Search", "search"}, {"Edit", "edit"}};
}

QIcon ProductIcon() { return OwnIcon("product"); }

QIcon BlankIcon() {
    QPixmap blank(largestIcon, largestIcon);
    blank.fill(Qt::transparent);
    return blank;
}

}  // namespace tessel
