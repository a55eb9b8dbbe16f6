#include "platform/file_numbers.h"

#include <algorithm>
#include <exception>
#include <filesystem>

#include "platform/fault.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr int kLogNumber = 6;

[[noreturn]] void FileFault(const std::string& path, const char* trouble) {
  throw Fault(FaultKind::File, "the file '" + path + "' " + trouble);
}

constexpr std::ios::openmode kRead = std::ios::in | std::ios::binary;
constexpr std::ios::openmode kUpdate = kRead | std::ios::out;
constexpr std::ios::openmode kMake = kUpdate | std::ios::trunc;

bool OpenOnDisk(std::filebuf& disk, const fs::path& place, std::ios::openmode mode) {
  disk.pubsetbuf(nullptr, 0);  // everything goes in one call as it is
  return disk.open(place, mode) != nullptr;
}

}  // namespace

FileNumbers Files;

void FileNumbers::ThrowNoSuchNumber(int number) {
  throw Fault(FaultKind::File, "there is no file number " + std::to_string(number));
}

void FileNumbers::ThrowWrongMode(int number) {
  throw Fault(FaultKind::File,
              "file number " + std::to_string(number) + " is not open for this operation");
}

FileNumbers::OpenFile& FileNumbers::Free(int number, const std::string& path) {
  OpenFile& file = Slot(number);
  if (file.mode != Mode::Closed) {
    throw Fault(FaultKind::File, "file number " + std::to_string(number) +
                                     " is open already, on '" + file.path + "'");
  }
  file = OpenFile{};
  file.path = path;
  return file;
}

void FileNumbers::OpenBinary(int number, const std::string& path) {
  const fs::path place = PlaceOfFile(path);
  if (place.empty() && !IsThere(SystemPath(path))) return MakeBinary(number, path);
  OpenFile& file = Free(number, path);
  if (place.empty()) FileFault(path, "can't be opened");
  if (!OpenOnDisk(file.disk, place, kUpdate)) {
    file.writable = false;
    if (!OpenOnDisk(file.disk, place, kRead)) FileFault(path, "can't be opened");
  }
  file.mode = Mode::Binary;
}

void FileNumbers::MakeBinary(int number, const std::string& path) {
  OpenFile& file = Free(number, path);
  if (!OpenOnDisk(file.disk, FormOfSystem(path), kMake)) FileFault(path, "can't be made");
  file.whole = file.fresh = true;
  file.mode = Mode::Binary;
}

void FileNumbers::OpenInput(int number, const std::string& path) {
  OpenFile& file = Free(number, path);
  const fs::path place = PlaceOfFile(path);
  if (place.empty() || !OpenOnDisk(file.disk, place, kRead)) {
    FileFault(path, "can't be opened");
  }
  TakeIn(file);
  file.mode = Mode::Input;
}

void FileNumbers::OpenOutput(int number, const std::string& path) {
  OpenFile& file = Free(number, path);
  if (!file.disk.open(SystemPath(path), std::ios::out | std::ios::trunc)) {
    FileFault(path, "can't be opened for writing");
  }
  file.mode = Mode::Output;
}

bool FileNumbers::IsOpen(int number) const { return Slot(number).mode != Mode::Closed; }

bool FileNumbers::IsPathOpen(const std::string& path) const {
  return std::any_of(slots_.begin(), slots_.end(), [&](const OpenFile& file) {
    return file.mode != Mode::Closed && IsSameFile(SystemPath(file.path), SystemPath(path));
  });
}

void FileNumbers::Close(int number) {
  OpenFile& file = Slot(number);
  if (file.mode == Mode::Closed) return;
  OpenFile closing = std::move(file);
  file = OpenFile{};
  WriteOut(closing);
  if (closing.disk.close() == nullptr) FileFault(closing.path, "can't be written");
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
    Close(number);
  } catch (const Fault&) {
    return;
  }
}

void FileNumbers::TakeIn(OpenFile& file) {
  const std::streamoff size = file.disk.pubseekoff(0, std::ios::end);
  std::string bytes(static_cast<std::size_t>(std::max<std::streamoff>(size, 0)), '\0');
  const auto count = static_cast<std::streamsize>(bytes.size());
  if (size < 0 || file.disk.pubseekpos(0) != std::streampos(0) ||
      file.disk.sgetn(bytes.data(), count) != count) {
    FileFault(file.path, "can't be read");
  }
  if (file.bytes.empty()) {
    file.bytes = std::move(bytes);
  } else if (file.bytes.size() < bytes.size()) {
    file.bytes.append(bytes, file.bytes.size());
  }
  file.whole = true;
}

std::string FileNumbers::ReadText(int number, std::int64_t count) {
  OpenFile& file = Readable(number);
  if (count <= 0) return {};
  const auto wanted = static_cast<std::size_t>(count);
  const std::size_t left =
      file.position < file.bytes.size() ? file.bytes.size() - file.position : 0;
  if (wanted > left) file.metEnd = true;
  std::string text;
  text.reserve(wanted);
  text.append(file.bytes, file.bytes.size() - left, std::min(wanted, left)).resize(wanted, '\0');
  file.position += wanted;
  return text;
}

bool FileNumbers::EndOfFile(int number) const {
  const OpenFile& file = Slot(number);
  if (file.mode == Mode::Input) return file.position >= file.bytes.size();
  return Opened(number, Mode::Binary).metEnd;
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
  OpenFile& file = Opened(number, Mode::Binary);
  if (!file.writable) FileFault(file.path, "may not be written");
  if (bytes.empty()) return;
  if (file.position > file.bytes.size() && !file.whole) TakeIn(file);
  const std::size_t end = file.position + bytes.size();
  if (file.position > file.bytes.size()) file.bytes.resize(file.position, '\0');
  const std::size_t replaced = std::min(bytes.size(), file.bytes.size() - file.position);
  std::copy_n(bytes.begin(), replaced,
              file.bytes.begin() + static_cast<std::ptrdiff_t>(file.position));
  file.bytes.append(bytes.substr(replaced));
  const bool clean = file.dirtyFrom == file.dirtyTo;
  file.dirtyFrom = clean ? file.position : std::min(file.dirtyFrom, file.position);
  file.dirtyTo = std::max(file.dirtyTo, end);
  file.position = end;
}

std::int64_t FileNumbers::Position(int number) const {
  return static_cast<std::int64_t>(Opened(number, Mode::Binary).position);
}

void FileNumbers::Seek(int number, std::int64_t position) {
  OpenFile& file = Opened(number, Mode::Binary);
  if (position < 0) FileFault(file.path, "has no such position");
  file.position = static_cast<std::size_t>(position);
  file.metEnd = false;
}

std::int64_t FileNumbers::Length(int number) {
  return static_cast<std::int64_t>(Readable(number).bytes.size());
}

void FileNumbers::Empty(int number) {
  OpenFile& file = Opened(number, Mode::Binary);
  if (!file.fresh) {
    const std::string path = file.path;
    Close(number);
    return MakeBinary(number, path);
  }
  file.bytes.clear();
  file.position = file.dirtyFrom = file.dirtyTo = 0;
  file.metEnd = false;
}

void FileNumbers::Flush(int number) { WriteOut(Opened(number, Mode::Binary)); }

void FileNumbers::WriteOut(OpenFile& file) {
  if (file.dirtyFrom == file.dirtyTo) return;
  const std::size_t from = file.dirtyFrom;
  const std::size_t count = file.dirtyTo - from;
  file.dirtyFrom = file.dirtyTo = 0;
  file.fresh = false;
  const auto size = static_cast<std::streamsize>(count);
  if (file.disk.pubseekpos(static_cast<std::streamoff>(from)) < 0 ||
      file.disk.sputn(file.bytes.data() + from, size) != size || file.disk.pubsync() != 0) {
    FileFault(file.path, "can't be written");
  }
}

std::string FileNumbers::ReadField(int number) {
  OpenFile& file = Opened(number, Mode::Input);
  const std::string& text = file.bytes;
  std::size_t& at = file.position;
  if (at >= text.size()) FileFault(file.path, "has no further field");
  const std::size_t filled = std::min(text.find_first_not_of(' ', at), text.size());
  if (text.compare(filled, 1, "\"") == 0) at = filled;

  std::string field;
  if (at < text.size() && text[at] == '"') {
    const std::size_t close = std::min(text.find('"', at + 1), text.size());
    field = text.substr(at + 1, close - at - 1);
    at = std::min(text.find_first_of(",\r\n", close), text.size());
  } else {
    const std::size_t end = std::min(text.find_first_of(",\r\n", at), text.size());
    field = text.substr(at, end - at);
    at = end;
  }
  if (text.compare(at, 2, "\r\n") == 0) {
    at += 2;
  } else if (at < text.size()) {
    ++at;
  }
  return field;
}

void FileNumbers::PrintLine(int number, std::string_view text) {
  OpenFile& file = Opened(number, Mode::Output);
  const std::string line = std::string(text) + '\n';
  const auto size = static_cast<std::streamsize>(line.size());
  if (file.disk.sputn(line.data(), size) != size || file.disk.pubsync() != 0) {
    FileFault(file.path, "can't be written");
  }
}

FlushOnFault::FlushOnFault(int number) : number_(number), pending_(std::uncaught_exceptions()) {}

FlushOnFault::~FlushOnFault() {
  if (std::uncaught_exceptions() == pending_) return;
  try {
    if (Files.IsOpen(number_)) Files.Flush(number_);
  } catch (const Fault&) {
    return;  // the fault that is on its way tells more than this one
  }
}

}  // namespace quillmark
