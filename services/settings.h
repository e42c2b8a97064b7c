#pragma once

#include <cstdint>
#include <string>

namespace qv {

// The settings component's door to the registry of a server. Set the fields, call SetHost, then one operation.
class Setting {
 public:
  virtual ~Setting() = default;

  std::string Host;
  std::string hKey;  // the full key path
  std::string ValueName;
  std::string Value;  // a word as decimal text, to write or as read

  // Raises RuntimeError for a server that isn't known.
  virtual void SetHost() = 0;
  // Reads the word into Value; a missing value leaves it as it is. The spelling is the component's.
  virtual int GetRegistryword() = 0;
  // Writes Value as a word. 0 is failure.
  virtual int SetRegistryWord() = 0;
};

// The option store of a server.
class Option {
 public:
  virtual ~Option() = default;

  std::string Host;
  std::int16_t Scope = 0;  // 0 global, 1 postoffice, 2 mailbox
  std::string Query;       // "GLOBAL", the postoffice, or postoffice + "/" + mailbox
  std::string ValueName;
  std::string Value;

  // Raises RuntimeError for a server that isn't known. An object that is never bound works on the local server.
  virtual void SetHost() = 0;
  // Reads into Value, which becomes empty when there is no such option.
  virtual int GetOption() = 0;
  virtual int SetOption() = 0;
};

}  // namespace qv
