#include "platform/disk_access.h"

#include <algorithm>

#include "platform/fault.h"

namespace quillmark {

void ThrowFileFault(const std::string& path, std::string_view trouble) {
  throw Fault(FaultKind::File, "the file '" + path + "' " + std::string(trouble));
}

bool OpenOnDisk(std::filebuf& disk, const std::filesystem::path& place, std::ios::openmode mode) {
  disk.pubsetbuf(nullptr, 0);
  return disk.open(place, mode) != nullptr;
}

std::string ReadWhole(std::filebuf& disk, const std::string& path) {
  const std::streamoff size = disk.pubseekoff(0, std::ios::end);
  std::string bytes(static_cast<std::size_t>(std::max<std::streamoff>(size, 0)), '\0');
  const auto count = static_cast<std::streamsize>(bytes.size());
  if (size < 0 || disk.pubseekpos(0) != std::streampos(0) ||
      disk.sgetn(bytes.data(), count) != count) {
    ThrowFileFault(path, "can't be read");
  }
  return bytes;
}

bool WriteAtOnce(std::filebuf& disk, std::string_view bytes) {
  const auto size = static_cast<std::streamsize>(bytes.size());
  return disk.sputn(bytes.data(), size) == size && disk.pubsync() == 0;
}

}  // namespace quillmark
