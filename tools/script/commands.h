#pragma once

#include "tools/script/command_line.h"

namespace quillmark {

// The subcommands, each in a file of its own. They give the status to end with, and throw `Trouble`
// and faults.

int RunShow(const Arguments& arguments);
int RunExport(const Arguments& arguments);
int RunBuild(const Arguments& arguments);
int RunDiff(const Arguments& arguments);
int RunStrings(const Arguments& arguments);
int RunCheck(const Arguments& arguments);

}  // namespace quillmark
