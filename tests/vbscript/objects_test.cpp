#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(ErrObject, Raise) {
  constexpr ScriptRow kRows[] = {
      {"On Error Resume Next\nErr.Raise 0\nPrint Err.Number", "5\n"},
      {"On Error Resume Next\nErr.Raise 65535\nPrint Err.Number", "65535\n"},
      {"On Error Resume Next\nErr.Raise 65536\nPrint Err.Number", "5\n"},
      {"On Error Resume Next\nErr.Raise 3000000000\nPrint Err.Number", "6\n"},
      {"On Error Resume Next\nErr.Raise &H800A000D\nPrint Err.Number, Err.Description", "13 Type mismatch\n"},
      {"On Error Resume Next\nErr.Raise &H80070005\nPrint Err.Number", "70\n"},
      {"On Error Resume Next\nErr.Raise &H80020009\nPrint Err.Number", "-2147352567\n"},
      {"On Error Resume Next\nErr.Raise\nPrint Err.Number", "450\n"},
      {"On Error Resume Next\nErr.Raise 1000\nPrint Err.Description", "Unknown runtime error\n"},
      {"On Error Resume Next\nErr.Raise 9, \"me\", \"what\", \"f.hlp\", 7\n"
       "Print Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext",
       "9 me what f.hlp 7\n"},
      {"On Error Resume Next\nErr.Raise 6\nIf Err Then Print Err", "6\n"},
      {"On Error Resume Next\nErr.Number = 4\nErr.Description = \"d\"\nErr.Source = \"s\"\nPrint Err, Err.Description, "
       "Err.Source",
       "4 d s\n"},
      {"On Error Resume Next\nx = Err.Nope\nPrint Err.Number", "438\n"},
      {"Err.Raise 5", "[5 at 1:0]"},
  };
  CheckScripts(kRows);
  const Outcome outcome = RunScript("Err.Raise 9, \"me\", \"what\"");
  ASSERT_TRUE(outcome.error);
  EXPECT_EQ(outcome.error->source, "me");
  EXPECT_EQ(outcome.error->description, "what");
}

TEST(ErrObject, MapsThePlatformsResults) {
  struct Mapping {
    const char* result;
    int number;
  };
  constexpr Mapping kMappings[] = {
      {"&H80004001", 445},         {"&H80004002", 430}, {"&H80070057", 5},   {"&H8007000E", 7},   {"&H80070005", 70},
      {"&H80020001", 438},         {"&H80020003", 438}, {"&H80020006", 438}, {"&H80020004", 448}, {"&H80020005", 13},
      {"&H80020007", 446},         {"&H80020008", 458}, {"&H8002000A", 6},   {"&H8002000B", 9},   {"&H8002000C", 447},
      {"&H8002000D", 10},          {"&H8002000E", 450}, {"&H8002000F", 449}, {"&H80020011", 451}, {"&H80020012", 11},
      {"&H80030002", 432},         {"&H80030003", 76},  {"&H80030004", 67},  {"&H80030005", 70},  {"&H8003001D", 57},
      {"&H80030020", 75},          {"&H80030050", 58},  {"&H80030070", 61},  {"&H800300FC", 53},  {"&H800401EA", 432},
      {"&H80040154", 429},         {"&H800401F3", 429}, {"&H800401F5", 429}, {"&H800706BA", 462}, {"&H800A01B6", 438},
      {"&H8000BEEF", -2147434769},
  };
  for (const Mapping& row : kMappings) {
    EXPECT_EQ(Told(std::string("On Error Resume Next\nErr.Raise ") + row.result + "\nPrint Err.Number"),
              std::to_string(row.number) + "\n")
        << row.result;
  }
}

}  // namespace
}  // namespace qv::vbscript
