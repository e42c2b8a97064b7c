#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qv {

enum class RegistryKind { Word, String };

struct RegistryValue {
  RegistryKind kind = RegistryKind::String;
  std::uint32_t word = 0;  // of a Word
  std::string text;        // of a String, without a final null character
};

// The local machine root of the registry of the machine that runs the console. Keys and value names count without
// regard to case.
class Registry {
 public:
  virtual ~Registry() = default;

  // The value, or nothing when the key or the value is missing. Raises RuntimeError when the registry can't be read.
  virtual std::optional<RegistryValue> Read(const std::string& key, const std::string& value_name) = 0;

  // Makes the key if it isn't there and sets the value; a character of a text that the system's code page lacks becomes
  // "?". Raises RuntimeError when that fails.
  virtual void Write(const std::string& key, const std::string& value_name, const RegistryValue& value) = 0;
};

}  // namespace qv
