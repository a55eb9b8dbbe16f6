#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quillmark {

/// How a file of the user's gets a new content: whole or not at all.
///
/// The new content goes to a file of its own in the same folder, with the old file's rights, is
/// flushed to the disk and takes the name in one step. At each moment one whole file stands under
/// that name, the old one or the new one. A link is followed, and stays. Where the system refuses
/// that last step, the content is written over the old one instead, and stays under its own name
/// too if that breaks off.
class Replacement {
 public:
  /// What becomes of the old file: nothing is left of it, or it goes to the trash if there is one.
  enum class OldFile { Dropped, Discarded };
  /// Whether a folder that takes no new file is a fault at once, or leads to writing in place.
  enum class NoNewFile { Fails, WritesInPlace };

  /// Makes the new file beside the one at `path`, which has to exist. Throws the file fault if the
  /// system fails, with nothing left behind.
  Replacement(std::string path, OldFile old, NoNewFile noNewFile);
  /// Takes the new file away if it did not take the name.
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Puts `content` in the place of the old file, once. Throws the file fault if the system fails;
  /// then the old file stands there as it was, or `TakeKeptContents` tells where the new one is.
  void Put(std::string_view content);

 private:
  [[noreturn]] void Fail(const std::error_code& error) const;
  void MakeBeside(NoNewFile noNewFile);
  void WriteFresh(std::string_view content) const;
  void KeepOld() const;
  void CopyOld() const;
  void TakeNameOrWriteOver(std::string_view content);
  void WriteOver(std::string_view content);
  void KeepFresh();
  void DiscardOld() const;

  std::string path_;
  OldFile old_;
  std::filesystem::path target_;
  std::filesystem::path fresh_;  ///< empty if there is none (any more)
  std::filesystem::path second_;
};

/// A content that could not be put in its place, and is kept whole beside it.
struct KeptContent {
  std::string path;  ///< the file that it was meant for
  std::string keptAt;
};

/// The contents kept since the last call.
std::vector<KeptContent> TakeKeptContents();

}  // namespace quillmark
