#include "comment.h"

namespace tessel::layout {

namespace {

std::string Joined(const std::vector<std::string>& texts, const char* separator) {
    std::string joined;
    for (const auto& text : texts) joined += (joined.empty() ? "" : separator) + text;
    return joined;
}

class CommentWriter {
  public:
    CommentWriter(const Field& field, const Column& column, Language language)
        : item_(*field.item), field_(field), column_(column), language_(language) {}

    std::string Write(const std::string& reason) {
        const std::string written = WrittenPicture(item_);
        parts_ = {written.empty() ? reason : written + ": " + reason};
        if (item_.hasSeparateSign) Say(Text::SeparateSign);
        if (item_.isBlankWhenZero) Say(Text::BlankWhenZero);
        if (item_.isJustified) Say(Text::Justified);
        if (!field_.redefines.empty()) Say(Text::Redefines, {field_.redefines});
        if (column_.occurrences.empty())
            for (const auto* occurs : field_.occurs) SayOccurs(*occurs);
        else
            SayOccurrence();
        if (!item_.value.empty()) Say(Text::InitialValue, {item_.value});
        SayConditions();
        return Joined(parts_, "; ");
    }

  private:
    void Say(Text text, const std::vector<std::string>& details = {}) {
        parts_.push_back(Phrase(language_, text, details));
    }

    void SayOccurs(const OccursClause& occurs) {
        const std::string most = std::to_string(occurs.most);
        if (occurs.dependingOn.empty())
            Say(Text::Occurs, {most});
        else
            Say(Text::OccursDepending, {std::to_string(occurs.least), most, occurs.dependingOn});
    }

    void SayOccurrence() {
        std::vector<std::string> numbers;
        std::vector<std::string> most;
        for (std::size_t i = 0; i < column_.occurrences.size(); ++i) {
            numbers.push_back(std::to_string(column_.occurrences[i]));
            most.push_back(std::to_string(field_.occurs[i]->most));
        }
        Say(Text::Occurrence, {Joined(numbers, ","), Joined(most, ",")});
        for (const auto* occurs : field_.occurs)
            if (!occurs->dependingOn.empty()) SayOccurs(*occurs);
    }

    void SayConditions() {
        constexpr std::size_t most = 50;  // the origin has them all
        std::vector<std::string> values;
        for (const auto& condition : item_.conditions) {
            values.push_back(values.size() == most ? "..." : condition.name + " = " + condition.values);
            if (values.size() > most) break;
        }
        if (!values.empty()) Say(Text::Values, {Joined(values, ", ")});
    }

    const Item& item_;
    const Field& field_;
    const Column& column_;
    Language language_;
    std::vector<std::string> parts_;
};

}  // namespace

std::string WrittenPicture(const Item& item) {
    std::string written = item.picture.empty() ? "" : "PIC " + item.picture;
    if (item.usage) written += (written.empty() ? "" : " ") + item.usage->word;
    if (item.usage && item.usage->isUnsigned) written += " UNSIGNED";
    return written;
}

std::string CommentOf(const Field& field, const Column& column, const std::string& reason,
                      Language language) {
    return CommentWriter(field, column, language).Write(reason);
}

}  // namespace tessel::layout
