#include "services/server_context.h"

#include <cmath>
#include <limits>
#include <memory>
#include <optional>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

// The number of a text as the 32-bit pattern that the registry keeps, rounded to even; nothing for a text that is no
// number or doesn't fit.
std::optional<std::uint32_t> WordOf(const std::string& text) {
  const std::optional<double> number = NumericValue(text);
  if (!number) return std::nullopt;
  const double rounded = std::nearbyint(*number);
  if (rounded < std::numeric_limits<std::int32_t>::min() || rounded > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(rounded));
}

// A bound setting object of a remote host, or null after the failure has been told.
std::unique_ptr<Setting> RemoteSetting(Run& run) {
  try {
    return run.components.CreateSetting();
  } catch (const RuntimeError& error) {
    run.toolkit.ShowMessage("Remote administration error:" + error.description(), "Error", MessageIcon::Critical);
    return nullptr;
  }
}

}  // namespace

bool IsRemoteHost(const std::string& host) { return !host.empty() && UpperCase(host) != "LOCALHOST"; }

std::int32_t ReadServerWord(Run& run, std::string_view key, std::string_view value_name, std::int32_t default_value,
                            const std::string& host) {
  if (IsRemoteHost(host)) {
    std::string value;
    if (const auto setting = RemoteSetting(run)) {
      IgnoreErrors([&] {
        setting->Host = host;
        setting->hKey = key;
        setting->ValueName = value_name;
        setting->Value.clear();
        setting->SetHost();
        setting->GetRegistryword();
      });
      value = setting->Value;
    }
    return static_cast<std::int32_t>(WordOf(value).value_or(0));
  }
  std::int32_t word = default_value;
  IgnoreErrors([&] {
    const auto value = run.registry.Read(std::string(key), std::string(value_name));
    if (value && value->kind == RegistryKind::Word) word = static_cast<std::int32_t>(value->word);
  });
  return word;
}

void WriteServerWord(Run& run, std::string_view key, std::string_view value_name, const std::string& value,
                     const std::string& host) {
  if (!IsRemoteHost(host)) {
    SetRegistryValue(run, key, value_name, value, RegistryKind::Word);
    return;
  }
  const auto setting = RemoteSetting(run);
  if (!setting) return;
  int result = 0;
  IgnoreErrors([&] {
    setting->Host = host;
    setting->hKey = key;
    setting->ValueName = value_name;
    setting->Value = value;
    setting->SetHost();
    result = setting->SetRegistryWord();
  });
  if (result == 0) run.toolkit.ShowMessage("Error setting remote values", "Error", MessageIcon::Critical);
}

bool SetRegistryValue(Run& run, std::string_view key, std::string_view value_name, const std::string& data,
                      RegistryKind kind) {
  bool done = false;
  IgnoreErrors([&] {
    RegistryValue value;
    value.kind = kind;
    if (kind == RegistryKind::Word) {
      const auto word = WordOf(data);
      if (!word) return;
      value.word = *word;
    } else {
      value.text = data;
    }
    run.registry.Write(std::string(key), std::string(value_name), value);
    done = true;
  });
  return done;
}

void SetMachineValue(Run& run, std::string_view key, std::string_view value_name, const std::string& data,
                     RegistryKind kind) {
  SetRegistryValue(run, key, value_name, data, kind);
}

std::string GetRegistryString(Run& run, std::string_view key, std::string_view value_name) {
  std::string text;
  IgnoreErrors([&] {
    const auto value = run.registry.Read(std::string(key), std::string(value_name));
    if (!value) return;
    text = value->kind == RegistryKind::Word ? std::to_string(static_cast<std::int32_t>(value->word)) : value->text;
  });
  return text;
}

std::string GetConfigurationDirectory(Run& run, const std::string& /*host*/) {
  return GetRegistryString(run, keys::kConfiguration, kConfigurationDirectory);
}

void SignalFilterReload(Run& run) { SetMachineValue(run, keys::kReload, "Reload", "1", RegistryKind::Word); }

std::int32_t IsFilteringEnabled(Run& run, const std::string& host) {
  if (ReadServerWord(run, keys::kFilters, "Enabled", 0, host) == 0) return 0;
  return ReadServerWord(run, keys::kFilterComponent, "Status", 0, host);
}

void SetProcessMailboxSpamFilters(Run& run, int value, const std::string& host) {
  WriteServerWord(run, keys::kPostofficeConnector, "Process Mailbox Spam Filters", std::to_string(value), host);
}

}  // namespace qv
