#pragma once

namespace quillmark {

/// Opens `log.txt` in the program's folder under file number 6, emptied, and prints the one line of
/// the run: the present date and time and the words "Quillmark begins loading". Throws the file
/// fault if it can't be written. The file stays open until the process ends.
void LogOpen();

/// Called before each step of the program with that step's name, in parts that follow one another.
/// Kept as it is: the text goes nowhere, so that a build can trace the steps by giving this routine
/// a body.
template <class... Parts>
void LogWrite(const Parts&... /*texts and numbers*/) {}

}  // namespace quillmark
