#!/usr/bin/env python3
"""Lists the column names that a schema uses with more than one type.

The parameter "file=PATH" has the list written to a CSV file; without it, it is shown in a window.
"""

import csv
import json
import os
import sys
from collections import defaultdict


class EditorError(Exception):
    """A call that the editor answered with an error."""


def call(member, *arguments, on=None):
    """Makes one call: writes it as a line, and reads the line that answers it."""
    line = {"member": member, "args": arguments}
    if on:
        line["on"] = on
    print(json.dumps(line), flush=True)
    answer = sys.stdin.readline()
    if not answer:
        sys.exit("the editor has gone")
    answer = json.loads(answer)
    if "error" in answer:
        raise EditorError(answer["error"]["message"])
    return answer["result"]


def select(sql):
    """The rows of a query, each a dictionary."""
    return list(call("Select", sql, on="ProjectDB").values())


def type_text(row):
    """NAME, NAME(length) or NAME(precision,scale), as the editor shows a type."""
    if not row["MaxPrecision"] or not row["Precision"]:
        return row["SourceTypeName"]
    scale = f",{row['Scale']}" if row["MaxScale"] and row["Scale"] else ""
    return f"{row['SourceTypeName']}({row['Precision']}{scale})"


def find_disagreements():
    """Rows of column name, type and tables, for the names that have several types."""
    tables = defaultdict(lambda: defaultdict(list))
    for row in select(
        "select C.ColumnName, T.TableName, S.SourceTypeName, C.Precision, C.Scale, S.MaxPrecision, S.MaxScale"
        " from Columns C join Tables T on T.TabID = C.TabID join SQLTypes S on S.TypeID = C.TypeID"
        " order by C.ColumnName, T.TableName"
    ):
        tables[row["ColumnName"].upper()][type_text(row)].append(row["TableName"])
    return [
        {"name": name, "type": kind, "tables": ", ".join(users)}
        for name, types in tables.items()
        if len(types) > 1
        for kind, users in sorted(types.items())
    ]


def write(path, rows):
    """Writes the rows to a CSV file, which replaces an older one only when it is complete."""
    unfinished = f"{path}.new-{os.getpid()}"
    with open(unfinished, "x", newline="", encoding="utf-8") as file:
        try:
            writer = csv.DictWriter(file, fieldnames=["name", "type", "tables"])
            writer.writeheader()
            writer.writerows(rows)
            file.flush()
            os.replace(unfinished, path)
        except BaseException:
            os.remove(unfinished)
            raise


def show(rows):
    """Shows the rows in a window."""
    call(
        "Form",
        {
            "caption": "Column names with several types",
            "fields": {
                "list": {
                    "kind": "list",
                    "caption": "&Names:",
                    "columns": {"name": "Column", "type": "Type", "tables": "Tables"},
                    "rows": {str(number): row for number, row in enumerate(rows, 1)},
                }
            },
        },
        on="ToolWindow",
    )


def run(parameter):
    """Does the tool's work; gives its result."""
    settings = dict(pair.split("=", 1) for pair in parameter.split(";") if "=" in pair)
    rows = find_disagreements()
    if "file" in settings:
        write(settings["file"], rows)
    elif rows:
        show(rows)
    return f"{len({row['name'] for row in rows})} names with several types"


def last_line():
    """The line that ends the conversation."""
    try:
        return {"result": run(sys.argv[1] if len(sys.argv) > 1 else "")}
    except (EditorError, OSError) as error:
        return {"error": {"message": str(error)}}


if __name__ == "__main__":
    print(json.dumps(last_line()), flush=True)
