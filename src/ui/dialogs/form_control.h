#pragma once

#include <QWidget>
#include <functional>

#include "host/questions.h"
#include "schema/component_state.h"

namespace tessel {

// What shows a field of a form.
struct FormControl {
    enum class Place { BesideCaption, BelowCaption, WithCaption };  // the last: it bears the caption itself

    QWidget* widget = nullptr;
    Place place = Place::BesideCaption;
    std::function<Value()> value{};  // what it holds; none for what is only read
};

// The objectName is the field's key; a file's line has a button KEY_browse beside it. What the user does not
// touch keeps its value to the letter.
[[nodiscard]] FormControl MakeFormControl(const ComponentState& state, const host::FormField& field);

}  // namespace tessel
