#include "runner/add_on_menu.h"

#include "schema/option_text.h"

namespace tessel {

namespace {

constexpr const char* separator = "-";

std::string ChildValue(const xml::Element& entry, const char* child) {
    return AttributeOf(entry.SelectSingleNode(child), "VALUE");
}

class MenuBuilder {
  public:
    MenuBuilder(AddOnMenu& menu, const text::Texts& texts) : menu_(menu), texts_(texts) {}

    void AddList(const xml::Element& list, const std::string& prefix) {
        if (!list || list.Name() != "LIST") return;
        AddSeparator();
        for (const auto& child : list.Children())
            if (IsVisible(child)) AddChild(child, prefix);
        AddSeparator();
    }

    void EndWithoutSeparator() {
        if (EndsWithSeparator()) menu_.items.pop_back();
    }

  private:
    void AddChild(const xml::Element& child, const std::string& prefix) {
        const std::string caption = prefix + ShownText(child, "CAPTION", texts_);
        if (child.SelectSingleNode("./TEXT[@NAME='ProgID']")) return AddEntry(child, caption);
        const auto inner = child.Children();
        if (!inner.empty()) AddList(inner.front(), caption + " ");
    }

    void AddEntry(const xml::Element& entry, const std::string& caption) {
        menu_.entries.push_back({.caption = caption,
                                 .name = AttributeOf(entry, "NAME"),
                                 .progID = ChildValue(entry, "./TEXT[@NAME='ProgID']"),
                                 .param = ChildValue(entry, "./TEXT[@NAME='Param']"),
                                 .verify = IsOn(ChildValue(entry, "./BOOL[@NAME='Verify']"))});
        menu_.items.push_back({.caption = caption, .entry = menu_.entries.size()});
    }

    void AddSeparator() {
        if (!menu_.items.empty() && !EndsWithSeparator()) menu_.items.push_back({.caption = separator});
    }
    [[nodiscard]] bool EndsWithSeparator() const {
        return !menu_.items.empty() && menu_.items.back().entry == 0;
    }

    AddOnMenu& menu_;
    const text::Texts& texts_;
};

}  // namespace

AddOnMenu ReadAddOnMenu(const xml::Document& globalOptions, const text::Texts& texts) {
    AddOnMenu menu;
    MenuBuilder builder(menu, texts);
    const auto list = globalOptions.SelectSingleNode("//CASE[@ID='Vantrel']/LIST[@NAME='AddOns']");
    builder.AddList(list, "");
    builder.EndWithoutSeparator();
    return menu;
}

}  // namespace tessel
