#pragma once

#include "component/CNota.h"
#include "host/Workplace.h"

namespace ovalia::host {

class AnnotationList;

// Answers all events of the component's object for one list. Both must outlive what they are connected to.
void connectAnswers(CNota& nota, AnnotationList& list, Workplace& workplace);

// A name checked against a column: true when the table has it. If not, `proposal` takes the nearest name
// there is, and with none near the user is told how to choose one. An empty name is in order.
bool checkName(Workplace& workplace, TextView table, TextView column, TextView name, Text& proposal);

// Several values, checked one by one in the same way; `value` is rewritten with the table's spelling and with
// what is proposed in place of unknown ones. True when all are known.
bool checkValues(Workplace& workplace, TextView table, TextView title, Text& value);

}  // namespace ovalia::host
