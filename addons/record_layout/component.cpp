#include "record_layout.h"

TESSEL_COMPONENT({"Tessel.RecordLayout", tessel::MakeObject<tessel::layout::RecordLayout>})
