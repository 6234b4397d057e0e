#include "orlo/core/Payload.h"

#include <boost/format.hpp>
#include <stdexcept>

#include "orlo/core/Logging.h"
#include "orlo/core/Memory.h"
#include "orlo/core/Status.h"

namespace orlo::core {

Payload::BufferImplementation::~BufferImplementation() {
  releaseBuffer(data, size);
  data = nullptr;
}

Payload::Payload() : buffer_(std::make_shared<BufferImplementation>(nullptr, 0)) {}

Payload::Payload(uint64_t size)
    : buffer_(std::make_shared<BufferImplementation>(createBuffer(size), size)) {}

Payload::Payload(const void* bytes, uint64_t size) : Payload(size) {
  memory::memCopy(buffer_->data, size, bytes, size);
}

uint8_t& Payload::operator[](uint64_t index) const {
  if (index >= buffer_->size) throw Status::outOfBounds();
  return buffer_->data[index];
}

void Payload::failCast(const char* structureName, uint64_t structureSize, uint32_t offset) const {
  const std::string message =
      (boost::format("Cast (with offsets) with payload data out of range!\nPayload size: "
                     "%1%\nStructure Name: %2%\nStructure Size: %3%\nOffset: %4%") %
       size() % structureName % structureSize % offset)
          .str();
  ORLO_LOG_AS("safeCast", debug, message);
  throw std::out_of_range(message);
}

}  // namespace orlo::core
