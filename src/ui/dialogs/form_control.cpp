#include "ui/dialogs/form_control.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <algorithm>
#include <limits>

#include "tessel/convert.h"
#include "ui/controls/connect.h"
#include "ui/controls/list_delegate.h"
#include "ui/dialogs/dialog.h"
#include "ui/dialogs/fields.h"
#include "ui/dialogs/form_file.h"

namespace tessel {

namespace {

using host::FormField;
using Place = FormControl::Place;

constexpr int browseText = 2740;

// In characters.
constexpr int lineWidth = 32;
constexpr int choiceWidth = 16;
constexpr int widestNote = 100;
constexpr int widestColumn = 40;
// In lines.
constexpr int fewest = 5;
constexpr int mostOfNote = 20;
constexpr int mostOfList = 14;

// A view that would like to be of that size.
template <typename View>
class Roomy : public View {
  public:
    void SetRoom(QSize size) { size_ = size; }
    [[nodiscard]] QSize sizeHint() const override { return size_; }

  private:
    QSize size_;
};

QSize BordersOf(const QAbstractScrollArea& view) {
    const int bar = view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int frame = 2 * view.frameWidth();
    return {bar + frame, bar + frame};
}

TextLine* MakeLine(const FormField& field) {
    auto* line = new TextLine(ToText(field.value));
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * lineWidth);
    line->setCursorPosition(0);
    return line;
}

FormControl MakeText(const FormField& field) {
    auto* line = MakeLine(field);
    return {.widget = line, .value = [line] { return Value(line->Text()); }};
}

FormControl MakeNumber(const FormField& field) {
    auto* box = new QSpinBox;
    box->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    box->setValue(ToInt32(field.value));
    return {.widget = box, .value = [box] { return Value(std::int32_t{box->value()}); }};
}

FormControl MakeCheck(const FormField& field) {
    auto* box = new QCheckBox(Caption(field.caption));
    box->setChecked(ToBoolean(field.value));
    return {.widget = box, .place = Place::WithCaption, .value = [box] { return Value(box->isChecked()); }};
}

FormControl MakeChoice(const FormField& field) {
    auto* box = new QComboBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto widest = std::size_t{choiceWidth};
    for (const auto& [value, caption] : field.choices) {
        box->addItem(Caption(caption), QString::fromStdString(value));
        widest = std::clamp(caption.size(), widest, std::size_t{widestColumn});
    }
    box->setMinimumContentsLength(static_cast<int>(widest));
    box->setCurrentIndex(box->findData(QString::fromStdString(ToText(field.value))));
    return {.widget = box, .value = [box] { return Value(box->currentData().toString().toStdString()); }};
}

FormControl MakeFile(const ComponentState& state, const FormField& field) {
    auto* place = new QWidget;
    auto* row = new QHBoxLayout(place);
    row->setContentsMargins({});
    auto* line = MakeLine(field);
    auto* browse = new QPushButton(Caption(state.texts->Text(browseText)));
    browse->setObjectName(QString::fromStdString(field.key + "_browse"));
    browse->setAccessibleDescription(Caption(field.caption).remove('&'));
    browse->setAutoDefault(false);
    Connect(browse, &QPushButton::clicked, line, [&state, field, line] {
        const QString path = ChooseFile(state, field, line->text(), line->window());
        if (!path.isEmpty()) line->setText(path);
    });
    row->addWidget(line, 1);
    row->addWidget(browse);
    place->setFocusProxy(line);
    return {.widget = place, .value = [line] { return Value(line->Text()); }};
}

FormControl MakeNote(const FormField& field) {
    auto* note = new Roomy<QPlainTextEdit>;
    note->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    note->setPlainText(Caption(ToText(field.value)));
    note->setReadOnly(true);
    note->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    note->setTabChangesFocus(true);
    note->setLineWrapMode(QPlainTextEdit::NoWrap);
    const QFontMetrics metrics = note->fontMetrics();
    const int margin = 2 * static_cast<int>(note->document()->documentMargin());
    const int width =
        std::min(static_cast<int>(note->document()->idealWidth()), widestNote * metrics.averageCharWidth());
    const int lines = std::clamp(note->blockCount(), fewest, mostOfNote);
    note->setMinimumHeight(fewest * metrics.lineSpacing());
    note->SetRoom(QSize(width + margin, lines * metrics.lineSpacing() + margin) + BordersOf(*note));
    return {.widget = note, .place = Place::BelowCaption};
}

void AddRows(QTreeWidget& list, const FormField& field) {
    QList<QTreeWidgetItem*> items;
    for (const auto& row : field.rows) {
        QStringList cells;
        for (const auto& cell : row) cells += Caption(cell).replace('\n', ' ');
        items += new QTreeWidgetItem(cells);
    }
    list.addTopLevelItems(items);
    list.setCurrentItem(list.topLevelItem(0));
}

void FitColumns(QTreeWidget& list) {
    const int widest = widestColumn * list.fontMetrics().averageCharWidth();
    for (int column = 0; column < list.columnCount(); ++column) {
        list.resizeColumnToContents(column);
        list.setColumnWidth(column, std::min(list.columnWidth(column), widest));
    }
}

FormControl MakeList(const FormField& field) {
    auto* list = new Roomy<QTreeWidget>;
    list->setItemDelegate(new ListDelegate(list));
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setAlternatingRowColors(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QStringList captions;
    for (const auto& column : field.columns) captions += Caption(column);
    list->setColumnCount(static_cast<int>(captions.size()));
    list->setHeaderLabels(captions);
    AddRows(*list, field);
    FitColumns(*list);
    const int line = std::max(list->sizeHintForRow(0), list->fontMetrics().lineSpacing());
    const int lines = std::clamp(static_cast<int>(field.rows.size()), fewest, mostOfList);
    const int header = list->header()->sizeHint().height();
    list->setMinimumHeight(header + fewest * line);
    list->SetRoom(QSize(list->header()->length(), header + lines * line) + BordersOf(*list));
    return {.widget = list, .place = Place::BelowCaption};
}

FormControl Make(const ComponentState& state, const FormField& field) {
    switch (field.kind) {
        case FormField::Kind::Number:
            return MakeNumber(field);
        case FormField::Kind::Check:
            return MakeCheck(field);
        case FormField::Kind::Choice:
            return MakeChoice(field);
        case FormField::Kind::OpenFile:
        case FormField::Kind::SaveFile:
            return MakeFile(state, field);
        case FormField::Kind::Note:
            return MakeNote(field);
        case FormField::Kind::List:
            return MakeList(field);
        case FormField::Kind::Text:
            break;
    }
    return MakeText(field);
}

}  // namespace

FormControl MakeFormControl(const ComponentState& state, const FormField& field) {
    FormControl control = Make(state, field);
    QWidget* named = control.widget->focusProxy() ? control.widget->focusProxy() : control.widget;
    named->setObjectName(QString::fromStdString(field.key));
    return control;
}

}  // namespace tessel
