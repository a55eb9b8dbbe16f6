#include "platform/disk_access.h"

#include <algorithm>
#include <exception>

#include "platform/fault.h"

namespace quillmark {

void ThrowFileFault(const std::string& path, std::string_view trouble) {
  throw Fault(FaultKind::File, "the file '" + path + "' " + std::string(trouble), path);
}

bool OpenOnDisk(std::filebuf& disk, const std::filesystem::path& place, std::ios::openmode mode) {
  disk.pubsetbuf(nullptr, 0);
  return disk.open(place, mode) != nullptr;
}

std::string ReadRest(std::filebuf& disk, std::size_t from, const std::string& path) {
  const std::streamoff size = disk.pubseekoff(0, std::ios::end);
  if (size < 0) ThrowFileFault(path, "can't be read");
  const std::streamoff start = std::min(size, static_cast<std::streamoff>(from));
  if (size == start) return {};

  std::string bytes;
  try {
    bytes.resize(static_cast<std::size_t>(size - start));
  } catch (const std::exception&) {
    ThrowFileFault(path, "is too large for the memory");
  }
  const auto count = static_cast<std::streamsize>(bytes.size());
  if (disk.pubseekpos(start) != std::streampos(start) || disk.sgetn(bytes.data(), count) != count) {
    ThrowFileFault(path, "can't be read");
  }
  return bytes;
}

bool WriteAtOnce(std::filebuf& disk, std::string_view bytes) {
  const auto size = static_cast<std::streamsize>(bytes.size());
  return disk.sputn(bytes.data(), size) == size && disk.pubsync() == 0;
}

}  // namespace quillmark
