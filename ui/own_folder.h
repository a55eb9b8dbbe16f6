#pragma once

#include <QString>

namespace quillmark {

/// The folder that the program keeps its own files in: its texts, its settings, its log.
struct OwnFolder {
  QString path;     ///< absolute, with slashes
  QString trouble;  ///< for the user, where no folder can be used; otherwise empty
};

/// Where the own folder may be, and what fills it.
struct OwnFolderPlaces {
  QString program;    ///< the folder of the executable
  QString installed;  ///< the tables as installed, where they do not stand beside the executable
  QString user;       ///< the user's folder for the program; it need not be there
  QString language;   ///< the file name of the table of the desktop's language
};

/// The places of this run of the program, as the desktop and the installation name them.
OwnFolderPlaces PlacesOfThisRun();

/// Finds the own folder and makes it ready for a start. The folder of the executable serves if the
/// tables lie in it and it may be written; nothing is changed there. Otherwise it is the user's,
/// which gets what it misses of the installed tables. Its files are brought up to the installed
/// ones as long as they are as the program once put them there; what the user changed is his.
OwnFolder PrepareOwnFolder(const OwnFolderPlaces& places);

}  // namespace quillmark
