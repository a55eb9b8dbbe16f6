#pragma once

#include <string>
#include <vector>

namespace quillmark {

/// Prints a script as it stands in the model, or loads it and saves it again, without any form:
///
///     list   tr4|tr5 SCRIPT            the model as one JSON object
///     resave tr4|tr5 SCRIPT TARGET     saves SCRIPT over TARGET, which has to exist, and each
///                                      loaded language beside it
///
/// Gives the exit status: 0 done; 1 refused; 2 a fault; 3 a level stream without its closing pair;
/// 64 wrong usage. Texts of troubles go to standard error. A model whose language files could only
/// be read in part is listed all the same, and is not saved.
int RunListing(const std::vector<std::string>& words);

}  // namespace quillmark
