#include "record_tree.h"

namespace tessel::layout {

namespace {

constexpr int recordLevel = 1;
constexpr int aloneLevel = 77;

class TreeBuilder {
  public:
    TreeBuilder(std::string fallback, Remarks& remarks) : fallback_(std::move(fallback)), remarks_(remarks) {}

    void Add(Item item) {
        if (item.level == aloneLevel) return AddAlone(std::move(item));
        CloseDownTo(item.level == recordLevel ? 0 : item.level);
        if (open_.empty() && item.level != recordLevel) Open(Root(fallback_, item.place));
        Open(std::move(item));
    }

    std::vector<Item> Take() {
        CloseDownTo(0);
        return std::move(records_);
    }

  private:
    static Item Root(const std::string& name, Place place) {
        Item root;
        root.name = name;
        root.place = place;
        return root;
    }

    void Open(Item item) {
        if (!open_.empty()) Inherit(open_.back(), item);
        open_.push_back(std::move(item));
    }

    void Inherit(Item& group, Item& item) {
        if (!group.picture.empty()) {
            remarks_.Add(group.place, Text::PictureOnGroup, {group.ShownName()});
            group.picture.clear();
            group.meaning.reset();
        }
        if (!item.usage) item.usage = group.usage;
        item.hasSeparateSign |= group.hasSeparateSign;
    }

    // Closes the open items of this level and below.
    void CloseDownTo(int level) {
        while (!open_.empty() && open_.back().level >= level) {
            Item closed = std::move(open_.back());
            open_.pop_back();
            (open_.empty() ? records_ : open_.back().children).push_back(std::move(closed));
        }
    }

    void AddAlone(Item item) {
        CloseDownTo(0);
        const bool isRow = !records_.empty() && !records_.back().children.empty() &&
                           records_.back().children.front().level == aloneLevel;
        if (!isRow) records_.push_back(Root(item.ShownName(), item.place));
        records_.back().children.push_back(std::move(item));
    }

    std::string fallback_;
    Remarks& remarks_;
    std::vector<Item> open_;
    std::vector<Item> records_;
};

}  // namespace

std::vector<Item> MakeRecords(std::vector<Item> items, const std::string& fallback, Remarks& remarks) {
    TreeBuilder builder(fallback, remarks);
    for (auto& item : items) builder.Add(std::move(item));
    return builder.Take();
}

}  // namespace tessel::layout
