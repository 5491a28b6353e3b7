#include "platform/loomis2/byte_reader.h"

#include <utility>

#include "platform/loomis2/invalid_picture.h"

namespace quenzel7::loomis2 {

ByteReader::ByteReader(std::span<const Byte> bytes, std::string name)
    : bytes_(bytes), name_(std::move(name)) {}

std::span<const Byte> ByteReader::Take(std::uint64_t count) {
  if (count > Left()) {
    RefusePicture(name_ + " ends after " + std::to_string(bytes_.size()) + " bytes: expected " +
                  std::to_string(count) + " from byte " + std::to_string(position_) + " on");
  }
  const std::span<const Byte> taken = bytes_.subspan(position_, static_cast<std::size_t>(count));
  position_ += taken.size();
  return taken;
}

void ByteReader::Seek(std::uint64_t position) {
  position_ = 0;
  Take(position);
}

std::uint32_t ByteReader::Number(std::size_t bytes) { return NumberOf(Take(bytes)); }

std::uint32_t NumberOf(std::span<const Byte> bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
  return number;
}

}  // namespace quenzel7::loomis2
