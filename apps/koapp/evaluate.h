// koapp evaluate: loads files, runs a task script over them, writes what came out.
#pragma once

#include "arguments.h"

namespace koapp {

// Throws a Failure.
void evaluate(const Arguments& arguments);

}  // namespace koapp
