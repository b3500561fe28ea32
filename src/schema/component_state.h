#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/frontend.h"
#include "host/questions.h"
#include "platform/db/database.h"
#include "platform/text/code_page.h"
#include "platform/text/texts.h"
#include "schema/origin_source.h"
#include "schema/sql_types.h"
#include "schema/tool_window.h"
#include "tessel/vntws.h"

namespace tessel {

// What the whole component shares from the start of the editor until its main window closes. It outlives the
// workspace that is made over it.
struct ComponentState {
    // Given by whoever makes the state.
    std::shared_ptr<const text::Texts> texts;
    std::shared_ptr<const text::CodePage> codePage;
    std::shared_ptr<host::Questions> questions;
    std::string helpFile;
    std::string programFolder;  // where the installation has its add-ons and the program that runs them
    std::function<std::shared_ptr<ToolWindow>(ComponentState&)> loadMainWindow;
    std::function<void(ComponentState&)> verifySchema;  // with the errors list shown afterwards

    // Set by the start of the editor.
    std::shared_ptr<host::Frontend> frontend;
    std::shared_ptr<host::RepositoryObject> project;
    std::shared_ptr<host::RepositoryObject> schemaObject;  // of type "DBSCHEMA"
    std::string projectName;
    std::string databaseFilename;
    std::string schemaFolder;
    std::shared_ptr<db::Database> database;  // none while no project is open
    std::string restrictText;                // what the delete rules "R" and "C" are called
    std::string cascadeText;
    std::shared_ptr<ToolWindow> window;

    SqlTypeCatalogue sqlTypes;
    OriginSourceState originSource;
    std::string failure;               // why the last action of RunTrapped failed
    std::shared_ptr<VNTWS> workspace;  // use WorkspaceOf

    [[nodiscard]] host::Frontend& Frontend() const;  // throws ErrorKind::Host while no host is known
    [[nodiscard]] db::Database& Database() const;    // throws ErrorKind::Host while no database is open
    [[nodiscard]] ToolWindow& Window() const;        // throws ErrorKind::Host while no window is open
    [[nodiscard]] std::string Title() const { return texts->Product("Tessel.Name"); }
};

// The component's one workspace, made on first use.
[[nodiscard]] std::shared_ptr<VNTWS> WorkspaceOf(ComponentState& state);

}  // namespace tessel
