// Reads any text as an export. What is read must come out of the writer and the reader again as it is.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "store/exchange.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  qv::DataSet data;
  try {
    data = qv::ReadDataSet({reinterpret_cast<const char*>(bytes), size});
  } catch (const qv::MalformedData&) {
    return 0;
  }
  const std::string text = qv::WriteDataSet(data);
  if (qv::WriteDataSet(qv::ReadDataSet(text)) != text) std::abort();
  return 0;
}
