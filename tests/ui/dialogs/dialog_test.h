#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>

#include "ui/main/window_test.h"
#include "ui/rules/rules_test.h"

namespace tessel::test {

// A schema that dialogs edit as a person would.
class DialogTest : public RulesTest {
  protected:
    // Calls `edit`; meanwhile `act` uses the dialog of that name, which is closed when it then still stands.
    template <typename Edit>
    auto Use(const char* name, const Edit& edit, const std::function<void()>& act) {
        WhenOpen(name, [this, act](QWidget& dialog) {
            dialog_ = &dialog;
            act();
            dialog.close();
        });
        return edit();
    }

    template <typename Control = QWidget>
    [[nodiscard]] Control& In(const char* name) const {
        auto* control = dialog_->findChild<Control*>(name);
        if (!control) throw std::out_of_range(name);
        return *control;
    }
    [[nodiscard]] QWidget& Dialog() const { return *dialog_; }
    [[nodiscard]] std::string Focus() const { return dialog_->focusWidget()->objectName().toStdString(); }

    void Click(const char* button) const { In<QAbstractButton>(button).click(); }
    void Press(const char* control, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(&In(control), key, modifiers);
    }
    void Type(const char* line, const char* text) const { QTest::keyClicks(&In(line), text); }
    // In place of what the line holds.
    void Enter(const char* line, const char* text) const {
        In<QLineEdit>(line).selectAll();
        Type(line, text);
    }
    [[nodiscard]] std::string TextOf(const char* line) const {
        return In<QLineEdit>(line).text().toStdString();
    }

    // Those of the controls, parted by blanks, that are enabled.
    [[nodiscard]] std::string Enabled(const std::string& names) const {
        std::string enabled;
        std::istringstream stream(names);
        for (std::string name; stream >> name;)
            if (In(name.c_str()).isEnabled()) enabled += (enabled.empty() ? "" : " ") + name;
        return enabled;
    }

    // The shown rows of a list: '*' selected, the name, '!' bold, '~' in a colour of its own.
    [[nodiscard]] std::string Listed(const char* list) const {
        std::string listed;
        auto& view = In<QTreeView>(list);
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QModelIndex item = view.model()->index(row, 0);
            std::string text = view.selectionModel()->isSelected(item) ? "*" : "";
            text += item.data().toString().toStdString();
            if (item.data(Qt::FontRole).value<QFont>().bold()) text += '!';
            if (item.data(Qt::ForegroundRole).isValid()) text += '~';
            AppendListed(listed, text);
        }
        return listed;
    }
    void ClickRow(const char* list, int row, bool twice = false) const {
        auto& view = In<QTreeView>(list);
        const QPoint place = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        if (twice) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }

  private:
    Environment environment_{{"XDG_CONFIG_HOME", folder / "config"}};
    QWidget* dialog_ = nullptr;
};

}  // namespace tessel::test
