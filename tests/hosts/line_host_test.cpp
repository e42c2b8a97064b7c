#include "hosts/line/line_host.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "platform/runtime_error.h"

namespace qv::testing {
namespace {

// Sends "first", echoes, and has a "dialog" that takes messages until "close".
void Echo(Carrier& carrier) {
  carrier.Send("first");
  while (const auto message = carrier.Receive()) {
    carrier.Send("<" + *message + ">");
    while (*message == "dialog") {
      const auto next = carrier.Receive();
      if (!next) throw RunEnded();
      carrier.Send("inside");
      if (*next == "close") break;
    }
  }
}

struct Result {
  int status;
  std::string output;
};

Result RunOn(std::string input, std::size_t longest = 16 << 20) {
  // A stream of nothing cannot be opened in memory.
  std::FILE* in = input.empty() ? std::fopen("/dev/null", "r") : fmemopen(input.data(), input.size(), "r");
  char* text = nullptr;
  std::size_t size = 0;
  std::FILE* out = open_memstream(&text, &size);
  const int status = RunLine(Echo, in, out, longest);
  std::fclose(in);
  std::fclose(out);
  Result result{status, std::string(text, size)};
  std::free(text);
  return result;
}

TEST(LineHost, AnswersALineWithALine) {
  const Result result = RunOn("{\"do\":1}\nsecond\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "first\n<{\"do\":1}>\n<second>\n");
}

TEST(LineHost, EndsWithTheInput) {
  EXPECT_EQ(RunOn("").output, "first\n");
  EXPECT_EQ(RunOn("").status, 0);
  EXPECT_EQ(RunOn("one").output, "first\n<one>\n");
}

TEST(LineHost, EndsInsideADialog) {
  const Result result = RunOn("dialog\nx\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "first\n<dialog>\ninside\n");
}

TEST(LineHost, HandsOnWhateverStandsInALine) {
  EXPECT_EQ(RunOn("\n \nx\r\n").output, "first\n<>\n< >\n<x\r>\n");
  EXPECT_EQ(RunOn(std::string("a\0b\n", 4)).output, std::string("first\n<a\0b>\n", 12));
}

TEST(LineHost, RefusesALongLineAndGoesOn) {
  EXPECT_EQ(RunOn("12345\n123456\n1\n", 5).output, "first\n<12345>\n{\"error\":\"The line is too long.\"}\n<1>\n");
  EXPECT_EQ(RunOn("123456", 5).output, "first\n{\"error\":\"The line is too long.\"}\n");
}

TEST(LineHost, EveryAnswerIsOutBeforeTheNextLineIsAwaited) {
  int to[2], from[2];
  ASSERT_EQ(pipe(to), 0);
  ASSERT_EQ(pipe(from), 0);
  const pid_t child = fork();
  if (child == 0) {
    close(to[1]);
    close(from[0]);
    alarm(20);
    _exit(RunLine(Echo, fdopen(to[0], "r"), fdopen(from[1], "w")));
  }
  close(to[0]);
  close(from[1]);
  std::FILE* in = fdopen(from[0], "r");
  char line[64];
  ASSERT_NE(std::fgets(line, sizeof line, in), nullptr);
  EXPECT_STREQ(line, "first\n");
  ASSERT_EQ(write(to[1], "one\n", 4), 4);
  ASSERT_NE(std::fgets(line, sizeof line, in), nullptr);
  EXPECT_STREQ(line, "<one>\n");
  close(to[1]);
  EXPECT_EQ(std::fgets(line, sizeof line, in), nullptr);
  std::fclose(in);
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST(LineHost, EndsQuietlyWhenNobodyReads) {
  const auto before = signal(SIGPIPE, SIG_IGN);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  std::FILE* in = std::fopen("/dev/zero", "r");  // an input that never ends
  std::FILE* out = fdopen(ends[1], "w");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(RunLine(Echo, in, out), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  std::fclose(in);
  std::fclose(out);
  signal(SIGPIPE, before);
}

TEST(LineHost, TellsWhenTheOutputFails) {
  std::FILE* in = std::fopen("/dev/zero", "r");
  std::FILE* out = std::fopen("/dev/full", "w");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(RunLine(Echo, in, out), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "The output could not be written: No space left on device.\n");
  std::fclose(in);
  std::fclose(out);
}

}  // namespace
}  // namespace qv::testing
