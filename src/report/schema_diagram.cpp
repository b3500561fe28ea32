#include "report/schema_diagram.h"

#include "schema/object_keys.h"
#include "schema/sql_text.h"

namespace tessel {

diagram::Diagram SchemaDiagram(db::Database& database) {
    diagram::Diagram drawing;
    for (auto table = database.Select("select * from Tables order by TableName"); table.Next();) {
        const std::string name = table.Text("TableName");
        drawing.boxes.push_back({TableKey(table.Integer("TabID")),
                                 name,
                                 FlattenText(NullToText(table["Comments"])),
                                 {0, 0, diagram::FittingWidth(name), diagram::fittingHeight}});
    }
    for (auto key = database.Select("select * from ForeignKeys order by KeyID"); key.Next();)
        drawing.links.push_back({ForeignKeyKey(key.Integer("KeyID")),
                                 key.Text("KeyName"),
                                 TableKey(key.Integer("TabID")),
                                 TableKey(key.Integer("RefTabId")),
                                 {}});
    return drawing;
}

}  // namespace tessel
