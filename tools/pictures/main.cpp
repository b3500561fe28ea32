#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QThread>
#include <QTreeView>
#include <filesystem>
#include <iostream>

#include "camera.h"
#include "engine/tessel_engine.h"
#include "ui/controls/help_window.h"
#include "ui/main/application.h"
#include "ui/main/frm_main.h"
#include "ui/main/qt_questions.h"
#include "ui/main/start_dialog.h"
#include "ui/main/tool_watch.h"
#include "workbench/stand_alone_frontend.h"

// pictures SHARE WORKSPACE PROJECT OUT LANGUAGE light|dark: pictures of every state of the window on a
// project, which should hold tables, keys and errors, and of its dialogs.
namespace tessel::pictures {

constexpr QSize windowSize(1280, 800);
constexpr int tourZoom = 65;

host::Form SampleForm() {
    using Kind = host::FormField::Kind;
    return {
        .title = "Record Layout",
        .text = "Columns of the copybook BORROWER.cpy, as they will be added to the table.",
        .okCaption = "&Add Columns",
        .fields = {
            {.key = "table", .caption = "&Table:", .value = "BORROWER"},
            {.key = "occurs",
             .kind = Kind::Number,
             .caption = "&Largest OCCURS that is expanded:",
             .value = 12},
            {.key = "format",
             .kind = Kind::Choice,
             .caption = "&Format:",
             .value = "fixed",
             .choices = {{"free", "Free"}, {"fixed", "Fixed, columns 8 to 72"}}},
            {.key = "in", .kind = Kind::OpenFile, .caption = "&Copybook:", .value = "copy/BORROWER.cpy"},
            {.key = "out", .kind = Kind::SaveFile, .caption = "テーブルの説明の保存先(&S):", .value = ""},
            {.key = "filler", .kind = Kind::Check, .caption = "테이블에 FILLER도 추가(&I)", .value = true},
            {.key = "source",
             .kind = Kind::Note,
             .caption = "S&ource:",
             .value = "01  BORROWER.\n    05  ID             PIC 9(8).\n    05  NAME           PIC X(40).\n"
                      "    05  JOINED.\n        10  JOINED-YEAR    PIC 9(4).\n"},
            {.key = "columns",
             .kind = Kind::List,
             .caption = "Col&umns:",
             .columns = {"Column", "Type", "Reason"},
             .rows = {
                 {"ID", "INTEGER", "PIC 9(8)"},
                 {"NAME", "VARCHAR(40)", "PIC X(40)"},
                 {"JOINED_YEAR", "SMALLINT", "PIC 9(4), which fits a small whole number without loss"}}}}};
}

host::Form LongForm() {
    host::Form form{.title = "Types", .text = std::string(400, 'w') + " end", .fields = {}};
    for (int number = 1; number <= 40; ++number)
        form.fields.push_back({.key = std::to_string(number),
                               .caption = "A caption of the field " + std::to_string(number) +
                                          ", which goes on for longer than any label ought to",
                               .value = number});
    return form;
}

class Album {
  public:
    Album(ComponentState& state, Camera camera)
        : state_(state), window_(dynamic_cast<frmMain&>(*state.window)), camera_(std::move(camera)) {
        window_.resize(windowSize);
    }

    void Fill() {
        TakeWindow();
        TakeMenus();
        TakeTableDialog();
        TakeTabs();
        TakeDiagramServices();
        TakeQuestions();
        TakeOthers();
        TakeAddOns();
        TakeLongTexts();
        TakeStart();
    }

  private:
    void Choose(const char* item) { window_.findChild<QAction*>(item)->trigger(); }

    void TakeWindow() {
        camera_.Take(window_, "window");
        auto& diagram = *window_.findChild<TDiagram*>("Diagram");
        Choose("mnuViewDiagram");
        Choose("mnuDiagramAutoPlace");
        window_.findChild<QTreeView*>("lvBrowser")->keyboardSearch("Edition");
        diagram.SetZoom(tourZoom);
        diagram.BringIntoView(diagram.CurrentBox());
        camera_.Take(window_, "tour");
        for (const char* item : {"mnuViewOrigin", "mnuViewLog", "mnuVerifyAll"}) Choose(item);
        auto* list = window_.findChild<QTreeView*>("lvProperties");
        list->setCurrentIndex(list->model()->index(0, 0));
        camera_.Take(window_, "six-panes");
        diagram.ZoomToFit();
        state_.window->StartProgress("Loading", 4);
        state_.window->FinishStep(2);
        camera_.Take(window_, "progress");
        state_.window->FinishProgress();
    }

    void TakeMenus() {
        for (QMenu* menu : window_.findChildren<QMenu*>()) {
            if (!menu->objectName().startsWith("mnu")) continue;
            menu->popup(QPoint(0, 0));
            camera_.Take(*menu, menu->objectName());
            menu->close();
        }
    }

    void TakeTableDialog() {
        for (const int tab : {0, 1})
            camera_.TakeModal(
                "frmTable", "table-" + QString::number(tab), [&] { Choose("mnuStructureProperties"); },
                [tab](QWidget& dialog) { dialog.findChild<QTabWidget*>("SSTab1")->setCurrentIndex(tab); });
    }

    // Each tab of the properties, the dialog of its first row, and that of a new key.
    void TakeTabs() {
        auto* tabs = window_.findChild<QTabBar*>("tsProperties");
        auto* list = window_.findChild<QTreeView*>("lvProperties");
        for (const char* dialog : {"frmColumn", "frmIndex", "frmForeignKey", "frmForeignKey"}) {
            const QString name = "tab-" + QString::number(tabs->currentIndex());
            camera_.Take(*window_.findChild<QWidget*>("paneProperties"), name);
            list->setCurrentIndex(list->model()->index(0, 0));
            if (list->currentIndex().isValid())
                camera_.TakeModal(dialog, name + "-dialog", [&] { Choose("mnuPopupProperties"); });
            if (tabs->currentIndex() == 2)
                camera_.TakeModal("frmCreateKey", "new-key", [&] { Choose("mnuPopupNew"); });
            QKeyEvent next(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
            QApplication::sendEvent(tabs, &next);
        }
    }

    void TakeDiagramServices() {
        camera_.TakeModal("frmPrintPreview", "print-preview", [&] { Choose("mnuDiagramPrint"); });
        Choose("mnuDiagramEdit");
        for (QWidget* editor : QApplication::topLevelWidgets()) {
            if (editor->objectName() != "frmDiagramEditor") continue;
            camera_.Take(*editor, "diagram-editor");
            editor->close();
        }
    }

    void TakeQuestions() {
        camera_.TakeModal("inputDialog", "input", [&] { Choose("mnuStructureRename"); });
        camera_.TakeModal("messageBox", "delete-schema", [&] { Choose("mnuFileDelete"); });
        camera_.TakeModal("messageBox", "drop-table", [&] { Choose("mnuStructureDelete"); });
    }

    // The button's list, a form with a field of each kind, and the box while a tool works.
    void TakeAddOns() {
        auto* list = window_.findChild<QMenu*>("tbExecuteMenu");
        list->popup(QPoint(0, 0));
        camera_.Take(*list, "tbExecuteMenu");
        list->close();
        camera_.TakeModal("frmForm", "form", [&] { (void)state_.questions->Fill(SampleForm()); });
        camera_.TakeModal("frmForm", "form-long", [&] { (void)state_.questions->Fill(LongForm()); });
        camera_.TakeModal("frmRunning", "running", [&] {
            ToolWatch watch(state_, window_, "SQL Script");
            while (watch.GoesOn()) QThread::msleep(50);
        });
        const std::string failed = "Failed to start SQL Script\rProgID: Tessel.SqlScript\rParam: ";
        camera_.TakeModal("messageBox", "add-on-failed", [&] {
            state_.questions->Show({.text = failed,
                                    .title = state_.Title(),
                                    .icon = host::Icon::Critical,
                                    .detail = "It was ended by the signal 11 (Segmentation fault)."});
        });
    }

    // Texts longer than a box has room for.
    void TakeLongTexts() {
        const host::MessageBox box{.text = std::string(3000, 'w') + " end",
                                   .title = state_.Title(),
                                   .icon = host::Icon::Warning,
                                   .buttons = host::Buttons::YesNo,
                                   .detail = "line\n" + std::string(500, '\n')};
        camera_.TakeModal("messageBox", "message-long", [&] { state_.questions->Show(box); });
        state_.window->StartProgress(std::string(500, 'w'), 4);
        camera_.Take(window_, "progress-long");
        state_.window->FinishProgress();
    }

    void TakeStart() {
        StartOffers offers;
        offers.sample = [] { return StartChoice{}; };
        offers.projects = [](const std::string&) { return std::vector<std::string>{"Lending", "Shop"}; };
        StartDialog dialog(state_.texts, offers,
                           {"/home/user/Documents/Library", "/home/user/Projects/2026/a long way down/Shop"});
        dialog.show();
        camera_.Take(dialog, "frmStart");
        camera_.TakeModal("inputDialog", "project",
                          [&] { dialog.findChild<QPushButton*>("cmdSample")->click(); });
        StartDialog first(state_.texts, offers, {});
        first.show();
        camera_.Take(first, "frmStart-first");
    }

    void TakeOthers() {
        camera_.TakeModal("frmOptions", "options", [&] { Choose("mnuViewOptions"); });
        camera_.TakeModal("frmAbout", "about", [&] { Choose("mnuHelpAbout"); });
        Choose("mnuHelpWindow");
        camera_.Take(*window_.findChild<QWidget*>("frmHelp"), "help");
    }

    ComponentState& state_;
    frmMain& window_;
    Camera camera_;
};

int Run(int argc, char** argv) {
    const std::string share = argv[1], out = argv[4];
    std::filesystem::remove_all(out + "/config");
    qputenv("XDG_CONFIG_HOME", (out + "/config").c_str());
    std::filesystem::create_directories(out);
    ComponentState state;
    Application application(argc, argv, [](const std::string& what) { std::cerr << what << '\n'; });
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (std::string_view(argv[6]) == "dark") UseDarkColours();
    state.texts = std::make_shared<text::Texts>(share + "/texts", argv[5]);
    state.codePage = std::make_shared<text::CodePage>(text::CodePage::FromEnvironment());
    state.questions = std::make_shared<QtQuestions>(state);
    state.loadMainWindow = LoadMainWindow;
    application.UseLanguage(state.texts->Language());
    const auto frontend = std::make_shared<workbench::StandAloneFrontend>(
        workbench::WorkspaceFolder::Open(argv[2]), argv[3], share);
    if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) != 0) return 1;
    Album(state, Camera(QString::fromStdString(out))).Fill();
    dynamic_cast<frmMain&>(*state.window).close();
    state.window.reset();
    return 0;
}

}  // namespace tessel::pictures

int main(int argc, char** argv) {
    if (argc != 7) {
        std::cerr << "usage: pictures SHARE WORKSPACE PROJECT OUT en|ja|ko light|dark\n";
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    return tessel::pictures::Run(argc, argv);
}
