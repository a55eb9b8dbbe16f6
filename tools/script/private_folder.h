#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// A new folder of this process for files on their way, gone with the object. It is the program's
/// own folder too, so that nothing is left in the real one.
class PrivateFolder {
 public:
  /// Throws the file fault if it can't be made.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  std::string PathOf(std::string_view name) const;
  /// Makes a file in it. Throws the file fault.
  void Put(std::string_view name, std::string_view bytes) const;
  /// The bytes of one of its files. Throws the file fault.
  std::string Take(std::string_view name) const;

 private:
  std::string path_;
  std::string programFolder_;
};

}  // namespace quillmark
