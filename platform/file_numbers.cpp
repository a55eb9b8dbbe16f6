#include "platform/file_numbers.h"

#include <algorithm>
#include <exception>
#include <type_traits>
#include <utility>

#include "platform/fault.h"
#include "platform/little_endian.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

/// The path of an open file; nothing for a number that is free.
template <class OpenFile>
const std::string* PathOf(const OpenFile& file) {
  return std::visit(
      []<class Kind>(const Kind& open) -> const std::string* {
        if constexpr (std::is_same_v<Kind, std::monostate>) {
          return nullptr;
        } else {
          return &open.Path();
        }
      },
      file);
}

void FlushQuietly(int number) {
  try {
    WithMemoryFaults([number] {
      if (Files.IsOpen(number)) Files.Flush(number);
    });
  } catch (const Fault&) {
    return;  // the fault that is on its way tells more than this one
  }
}

}  // namespace

FileNumbers Files;

void FileNumbers::ThrowNoSuchNumber(int number) {
  throw Fault(FaultKind::File, "there is no file number " + std::to_string(number));
}

void FileNumbers::ThrowWrongKind(int number) {
  throw Fault(FaultKind::File,
              "file number " + std::to_string(number) + " is not open for this operation");
}

FileNumbers::OpenFile& FileNumbers::Free(int number) {
  OpenFile& file = Behind(*this, number);
  if (const std::string* const path = PathOf(file)) {
    throw Fault(FaultKind::File,
                "file number " + std::to_string(number) + " is open already, on '" + *path + "'",
                *path);
  }
  return file;
}

void FileNumbers::OpenBinary(int number, const std::string& path) {
  Free(number) = BinaryFile::Open(path);
}

void FileNumbers::MakeBinary(int number, const std::string& path) {
  Free(number) = BinaryFile::Make(path);
}

void FileNumbers::ReplaceBinary(int number, const std::string& path) {
  Free(number) = BinaryFile::Replace(path);
}

void FileNumbers::OpenInput(int number, const std::string& path) {
  Free(number) = FieldReader(path);
}

void FileNumbers::OpenOutput(int number, const std::string& path) {
  Free(number) = LineWriter(path);
}

bool FileNumbers::IsOpen(int number) const { return PathOf(Behind(*this, number)) != nullptr; }

bool FileNumbers::IsPathOpen(const std::string& path) const {
  return std::any_of(files_.begin(), files_.end(), [&](const OpenFile& file) {
    const std::string* const open = PathOf(file);
    return open != nullptr && IsSameFile(SystemPath(*open), SystemPath(path));
  });
}

void FileNumbers::Close(int number) {
  // The number is free again even if the rest of the file can't be written.
  OpenFile closing = std::exchange(Behind(*this, number), OpenFile());
  if (auto* const binary = std::get_if<BinaryFile>(&closing)) binary->Close();
  if (auto* const writer = std::get_if<LineWriter>(&closing)) writer->Close();
}

void FileNumbers::CloseFiles() {
  for (int number = 1; number <= 10; ++number) {
    if (number != kLogNumber) Close(number);
  }
}

void FileNumbers::AbandonFiles() noexcept {
  for (int number = 1; number <= 10; ++number) {
    if (number != kLogNumber) Abandon(number);
  }
}

void FileNumbers::CloseAll() noexcept {
  AbandonFiles();
  Abandon(kLogNumber);
}

void FileNumbers::Abandon(int number) noexcept {
  try {
    Behind(*this, number) = OpenFile();
  } catch (const std::exception&) {
    return;  // behind a number that there is not, there is nothing to give up
  }
}

std::string FileNumbers::ReadText(int number, std::int64_t count) {
  return Opened<BinaryFile>(*this, number).ReadText(count);
}

bool FileNumbers::EndOfFile(int number) const {
  const auto* const fields = std::get_if<FieldReader>(&Behind(*this, number));
  return fields != nullptr ? fields->AtEnd() : Opened<BinaryFile>(*this, number).MetEnd();
}

template <class Number>
void FileNumbers::WriteNumber(int number, Number value) {
  std::string bytes;
  AppendNumber(bytes, value);
  WriteText(number, bytes);
}

void FileNumbers::WriteByte(int number, Byte value) { WriteNumber(number, value); }
void FileNumbers::WriteInt16(int number, Int16 value) { WriteNumber(number, value); }
void FileNumbers::WriteInt32(int number, Int32 value) { WriteNumber(number, value); }

void FileNumbers::WriteText(int number, std::string_view bytes) {
  Opened<BinaryFile>(*this, number).WriteText(bytes);
}

std::int64_t FileNumbers::Position(int number) const {
  return Opened<BinaryFile>(*this, number).Position();
}

void FileNumbers::Seek(int number, std::int64_t position) {
  Opened<BinaryFile>(*this, number).Seek(position);
}

std::int64_t FileNumbers::Length(int number) { return Opened<BinaryFile>(*this, number).Length(); }

void FileNumbers::Empty(int number) {
  BinaryFile& file = Opened<BinaryFile>(*this, number);
  if (file.IsFresh()) return file.Clear();
  const std::string path = file.Path();
  Close(number);
  MakeBinary(number, path);
}

void FileNumbers::Flush(int number) { Opened<BinaryFile>(*this, number).Flush(); }

std::string FileNumbers::ReadField(int number) {
  return Opened<FieldReader>(*this, number).ReadField();
}

void FileNumbers::PrintLine(int number, std::string_view text) {
  Opened<LineWriter>(*this, number).PrintLine(text);
}

void WriteUpToFault(int number, const std::function<void()>& steps) {
  try {
    WithMemoryFaults(steps);
  } catch (const Fault& fault) {
    if (IsOfSystem(fault.kind())) {
      Files.Abandon(number);
    } else {
      FlushQuietly(number);
    }
    throw;
  }
}

}  // namespace quillmark
