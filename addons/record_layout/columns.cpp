#include "columns.h"

#include <algorithm>
#include <unordered_map>

#include "line_text.h"

namespace tessel::layout {

namespace {

constexpr std::size_t longestName = 64;

// A name of two-byte characters holds no others.
std::string Separator(const std::string& name) {
    return static_cast<unsigned char>(name.back()) < 0x80 ? "_" : "\uFF3F";
}

// Whether an elementary item describes something that a column can hold.
bool HasValue(const Item& item) {
    if (item.meaning) return true;
    if (!item.usage) return false;
    const Usage usage = item.usage->usage;
    return usage == Usage::Float || usage == Usage::Double || usage == Usage::Index || item.usage->bytes > 0;
}

bool IsAddress(const Item& item) { return item.usage && item.usage->usage == Usage::Address; }

// The last line of the file at which a description in the item begins.
int LastLine(const Item& item, int file) {
    int last = item.place.file == file ? item.place.line : 0;
    for (const auto& condition : item.conditions)
        if (condition.place.file == file) last = std::max(last, condition.place.line);
    for (const auto& child : item.children) last = std::max(last, LastLine(child, file));
    return last;
}

class Planner {
  public:
    Planner(const Choices& choices, Remarks& remarks) : choices_(choices), remarks_(remarks) {}

    Plan Make(const Item& record) {
        FindFields(record);
        if (plan_.fields.empty()) throw Complaint(Text::NoColumns, {record.ShownName()});
        if (counts_[&record] > mostColumns)
            throw Complaint(Text::TooManyColumns, {record.ShownName(), std::to_string(mostColumns)});
        AddColumns(record);
        return std::move(plan_);
    }

  private:
    // Finds the fields in the item; counts the columns that they make.
    void FindFields(const Item& item) {
        if (item.occurs) occurs_.push_back(&*item.occurs);
        std::int64_t count = item.children.empty() ? FindField(item) : FindChildren(item);
        if (item.occurs) {
            occurs_.pop_back();
            if (choices_.occurrences == Occurrences::Expand)
                count = std::min(count * item.occurs->most, mostColumns + 1);
        }
        if (count > 0) counts_[&item] = count;
    }

    std::int64_t FindChildren(const Item& group) {
        BlameConditions(group);
        const bool isGroup = group.level > 1;
        if (isGroup) groups_.push_back(&group);
        std::int64_t count = 0;
        for (const auto& item : group.children) {
            if (IsLeftOut(item)) {
                BlameRedefinition(item);
                continue;
            }
            FindFields(item);
            const auto found = counts_.find(&item);
            if (found != counts_.end()) count = std::min(count + found->second, mostColumns + 1);
        }
        if (isGroup) groups_.pop_back();
        return count;
    }

    std::int64_t FindField(const Item& item) {
        if (!IsUsable(item)) {
            BlameConditions(item);
            return 0;
        }
        plan_.fields.push_back({&item, NameWithGroups(item), RedefinedBy(item), occurs_});
        return 1;
    }

    bool IsUsable(const Item& item) {
        if (item.name.empty()) return false;
        if (HasValue(item) && !IsAddress(item)) return true;
        if (IsAddress(item))
            remarks_.Add(item.place, Text::Address, {item.name, item.usage->word});
        else if (item.picture.empty())
            remarks_.Add(item.place, Text::NoPicture, {item.name});
        return false;
    }

    void BlameConditions(const Item& item) {
        for (const auto& condition : item.conditions)
            remarks_.Add(condition.place, Text::ConditionAlone, {condition.name, item.ShownName()});
    }

    void BlameRedefinition(const Item& item) {
        const int last = LastLine(item, item.place.file);
        if (last == item.place.line)
            remarks_.Add(item.place, Text::Redefinition, {item.ShownName(), item.redefines});
        else
            remarks_.Add(
                item.place, Text::RedefinitionLines,
                {item.ShownName(), item.redefines, std::to_string(item.place.line), std::to_string(last)});
    }

    std::string RedefinedBy(const Item& item) const {
        if (!item.redefines.empty()) return item.redefines;
        const auto isOne = [](const Item* group) { return !group->redefines.empty(); };
        const auto group = std::find_if(groups_.rbegin(), groups_.rend(), isOne);
        return group == groups_.rend() ? std::string() : (*group)->redefines;
    }

    bool IsLeftOut(const Item& item) const {
        return !item.redefines.empty() && choices_.redefinitions == Redefinitions::First;
    }

    std::string NameWithGroups(const Item& item) const {
        std::string name;
        if (choices_.hasPrefix)
            for (const Item* group : groups_)
                if (!group->name.empty()) name += group->name + Separator(item.name);
        return name + item.name;
    }

    void AddColumns(const Item& item) {
        if (!counts_.contains(&item)) return;
        const bool isExpanded = item.occurs && choices_.occurrences == Occurrences::Expand;
        if (!isExpanded) return AddOccurrence(item);
        for (std::int64_t i = 1; i <= item.occurs->most; ++i) {
            occurrences_.push_back(i);
            AddOccurrence(item);
            occurrences_.pop_back();
        }
    }

    void AddOccurrence(const Item& item) {
        for (const auto& child : item.children) AddColumns(child);
        if (item.children.empty()) plan_.columns.push_back({FieldOf(item), occurrences_});
    }

    std::size_t FieldOf(const Item& item) {
        if (fieldOf_.empty())
            for (std::size_t i = 0; i < plan_.fields.size(); ++i) fieldOf_[plan_.fields[i].item] = i;
        return fieldOf_.at(&item);
    }

    const Choices& choices_;
    Remarks& remarks_;
    Plan plan_;
    std::unordered_map<const Item*, std::int64_t>
        counts_;  // of columns, where there are any; not far above the most
    std::unordered_map<const Item*, std::size_t> fieldOf_;
    std::vector<const Item*> groups_;          // around the item that is looked at
    std::vector<const OccursClause*> occurs_;  // likewise
    std::vector<std::int64_t> occurrences_;
};

}  // namespace

std::string Plan::NameOf(const Column& column) const {
    const std::string& name = fields[column.field].name;
    std::string suffix;
    std::size_t length = 0;
    for (const std::int64_t occurrence : column.occurrences) {
        const std::string digits = std::to_string(occurrence);
        suffix += Separator(name) + digits;
        length += 1 + digits.size();
    }
    return std::string(FirstCharacters(name, longestName - std::min(length, longestName - 1))) + suffix;
}

Plan MakePlan(const Item& record, const Choices& choices, Remarks& remarks) {
    return Planner(choices, remarks).Make(record);
}

}  // namespace tessel::layout
