#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>

namespace orlo::core {

// A shared handle on a zero-filled byte buffer aligned to 4096 bytes. Copies share the
// buffer; it is wiped and freed when the last handle goes. A deep copy is made
// explicitly: Payload(other.data(), other.size()).
class Payload {
 public:
  struct BufferImplementation {
    BufferImplementation(uint8_t* data, uint64_t size) : data(data), size(size) {}
    ~BufferImplementation();
    BufferImplementation(const BufferImplementation&) = delete;
    BufferImplementation& operator=(const BufferImplementation&) = delete;

    uint8_t* data;
    uint64_t size;
  };

  Payload();  // empty: null data, size 0
  explicit Payload(uint64_t size);
  Payload(const void* bytes, uint64_t size);

  uint8_t* data() const { return buffer_->data; }
  // The size is kept in 64 bits and read in 32.
  uint32_t size() const { return static_cast<uint32_t>(buffer_->size); }

  // Throws Status::outOfBounds() for an index at or past the end.
  uint8_t& operator[](uint64_t index) const;

  // A view of the buffer's start as a T; throws std::out_of_range if the payload is
  // shorter. The view does not keep the buffer alive.
  template <typename T>
  T* safeCast() const {
    if (size() < sizeof(T)) failCast(typeid(T*).name(), sizeof(T), 0);
    return reinterpret_cast<T*>(data());
  }

  // The same at `offset` bytes into the buffer.
  template <typename T>
  T* safeCast(uint32_t offset) const {
    if (static_cast<uint64_t>(offset) + sizeof(T) > size()) {
      failCast(typeid(T*).name(), sizeof(T), offset);
    }
    return reinterpret_cast<T*>(data() + offset);
  }

 private:
  [[noreturn]] void failCast(const char* structureName, uint64_t structureSize,
                             uint32_t offset) const;

  std::shared_ptr<BufferImplementation> buffer_;
};

}  // namespace orlo::core
