#include "spam/weight_tables.h"

#include "spam/text_lines.h"
#include "tests/spam/spam_fixture.h"

namespace qv::test {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  ForEachLine(text, [&lines](std::string_view line) { lines.emplace_back(line); });
  return lines;
}

using Lines = std::vector<std::string>;

TEST(TextLines, AreReadAsAStreamReadsThem) {
  EXPECT_EQ(LinesOf(""), Lines{});
  EXPECT_EQ(LinesOf("a"), Lines{"a"});
  EXPECT_EQ(LinesOf("a\r\nb"), (Lines{"a", "b"}));
  EXPECT_EQ(LinesOf("a\r\nb\r\n"), (Lines{"a", "b"}));
  EXPECT_EQ(LinesOf("a\nb\n"), (Lines{"a", "b"}));
  EXPECT_EQ(LinesOf("\r\na\r\n\r\nb"), (Lines{"", "a", "", "b"}));
  EXPECT_EQ(LinesOf("a\r\n\r\n"), (Lines{"a", ""}));
}

TEST(TextLines, FieldsAreCountedFromOneAndMayBeMissing) {
  EXPECT_EQ(Field("a\tb\tc", 1), "a");
  EXPECT_EQ(Field("a\tb\tc", 2), "b");
  EXPECT_EQ(Field("a\tb\tc", 3), "c");
  EXPECT_EQ(Field("a\tb\tc", 4), "");
  EXPECT_EQ(Field("a\t\tc", 2), "");
  EXPECT_EQ(Field("", 1), "");
}

TEST(WeightTokens, MarkEveryClosingBracket) {
  EXPECT_EQ(PositiveToken("[WORD]"), "[WORD_POS]");
  EXPECT_EQ(NegativeToken("[WORD]"), "[WORD_NEG]");
  EXPECT_EQ(PositiveToken("[A]B]"), "[A_POS]B_POS]");
  EXPECT_EQ(NegativeToken("[A]B]"), "[A_NEG]B_NEG]");
  EXPECT_EQ(PositiveToken("WORD"), "WORD");
  EXPECT_EQ(PositiveToken(""), "");
}

using ReadSpamWeightsTest = SpamFixture;

TEST_F(ReadSpamWeightsTest, IsEmptyWithoutTheFile) { EXPECT_EQ(ReadSpamWeights(run), SpamWeights{}); }

TEST_F(ReadSpamWeightsTest, IsEmptyForAnEmptyFile) {
  files.Put(kValuesPath, "");
  EXPECT_EQ(ReadSpamWeights(run), SpamWeights{});
}

TEST_F(ReadSpamWeightsTest, HasTwoEntriesATest) {
  files.Put(kValuesPath, "[A]\t5\t6\r\n\r\n[B]\t1000\t0\r\n");
  const SpamWeights expected = {{"[A_POS]", "5"}, {"[A_NEG]", "6"}, {"[B_POS]", "1000"}, {"[B_NEG]", "0"}};
  EXPECT_EQ(ReadSpamWeights(run), expected);
}

TEST_F(ReadSpamWeightsTest, LooksAtThePositiveWeightAlone) {
  files.Put(kValuesPath, "[A]\tx\t6\r\n[B]\t\t7\r\n[C]\t3\ty\r\n[D]\t4\r\n[E]");
  const SpamWeights expected = {{"[C_POS]", "3"}, {"[C_NEG]", "y"}, {"[D_POS]", "4"}, {"[D_NEG]", ""}};
  EXPECT_EQ(ReadSpamWeights(run), expected);
}

TEST_F(ReadSpamWeightsTest, ATestThatStandsTwiceEndsTheReading) {
  files.Put(kValuesPath, "[A]\t1\t2\r\n[B]\t3\t4\r\n[A]\t5\t6\r\n[C]\t7\t8");
  const SpamWeights expected = {{"[A_POS]", "1"}, {"[A_NEG]", "2"}, {"[B_POS]", "3"}, {"[B_NEG]", "4"}};
  EXPECT_EQ(ReadSpamWeights(run), expected);
}

TEST_F(ReadSpamWeightsTest, ATokenWithoutABracketIsItsOwnDuplicate) {
  files.Put(kValuesPath, "WORD\t1\t2\r\n[C]\t7\t8");
  EXPECT_EQ(ReadSpamWeights(run), (SpamWeights{{"WORD", "1"}}));
}

TEST_F(ReadSpamWeightsTest, EndsQuietlyWhenTheFileCannotBeRead) {
  files.Put(kValuesPath, "[A]\t1\t2");
  files.fail = "ReadAll";
  EXPECT_EQ(ReadSpamWeights(run), SpamWeights{});
}

TEST_F(ReadSpamWeightsTest, TheFileIsAlwaysTheLocalMachines) {
  run.ServerHost = "FAR";
  files.Put(kValuesPath, "[A]\t1\t2");
  EXPECT_EQ(WeightOf(ReadSpamWeights(run), "[A_NEG]"), "2");
  EXPECT_EQ(WeightOf(ReadSpamWeights(run), "[B_NEG]"), "");
}

using MergeTest = SpamFixture;

TEST_F(MergeTest, WithoutValuesTakesTheDefaults) {
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(files.writes, std::vector<std::string>{kValuesPath});
}

TEST_F(MergeTest, KeepsValuesInTheOrderOfTheDefaults) {
  files.Put(kValuesPath, "[TRUSTED]\t3\t8\r\n[RBL]\t71\t2");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[RBL]\t71\t2\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t3\t8");
}

TEST_F(MergeTest, DropsATestThatLeftTheDefaults) {
  files.Put(kValuesPath, "[GONE]\t3\t8\r\n[RBL]\t71\t2");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[RBL]\t71\t2\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
}

TEST_F(MergeTest, AChangeGoesBeforeValuesAndDefaults) {
  files.Put(kValuesPath, "[RBL]\t71\t2\r\n[TRUSTED]\t3\t8");
  MergeSpamWeights(run, SpamWeightChange{"[RBL]", "5", "6"});
  EXPECT_EQ(Values(), "[RBL]\t5\t6\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t3\t8");
}

TEST_F(MergeTest, AChangeIsForTheExactToken) {
  MergeSpamWeights(run, SpamWeightChange{"[rbl]", "5", "6"});
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
}

TEST_F(MergeTest, AnEmptyPositiveWeightIsWrittenAndReplacedByTheDefaultsNextTime) {
  MergeSpamWeights(run, SpamWeightChange{"[RBL]", "", "6"});
  EXPECT_EQ(Values(), "[RBL]\t\t6\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
}

TEST_F(MergeTest, AMissingNegativeWeightIsWrittenBackEmpty) {
  files.Put(kValuesPath, "[RBL]\t71");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[RBL]\t71\t\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
}

TEST_F(MergeTest, EmptyLinesOfTheDefaultsAreLeftOut) {
  files.Put(kDefaultsPath, "\r\n[A]\tOne\t1\t2\r\n\r\n[B]\tTwo\t3\t4\r\n\r\n");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[A]\t1\t2\r\n[B]\t3\t4");
}

TEST_F(MergeTest, ADefaultLineMayBeShort) {
  files.Put(kDefaultsPath, "[A]\r\n[B]\tTwo\t3");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "[A]\t\t\r\n[B]\t3\t");
}

TEST_F(MergeTest, WithoutDefaultsEmptiesTheValues) {
  files.Delete(kDefaultsPath);
  files.Put(kValuesPath, "[RBL]\t71\t2");
  MergeSpamWeights(run, SpamWeightChange{"[RBL]", "5", "6"});
  EXPECT_EQ(Values(), "");
}

TEST_F(MergeTest, AnEmptyDefaultsFileHasNoLines) {
  files.Put(kDefaultsPath, "");
  files.Put(kValuesPath, "[RBL]\t71\t2");
  MergeSpamWeights(run, std::nullopt);
  EXPECT_EQ(Values(), "");
}

TEST_F(MergeTest, RaisesWhenTheDefaultsCannotBeRead) {
  files.fail = "ReadAll";
  EXPECT_EQ(ErrorOf([this] { MergeSpamWeights(run, std::nullopt); }), "70 Permission denied");
  EXPECT_EQ(Values(), "(missing)");
}

TEST_F(MergeTest, RaisesWhenTheValuesCannotBeWritten) {
  files.fail = "Write";
  EXPECT_EQ(ErrorOf([this] { MergeSpamWeights(run, std::nullopt); }), "70 Permission denied");
}

using WriteDefaultsTest = SpamFixture;

TEST_F(WriteDefaultsTest, TakesTokenAndWeights) {
  files.Put(kValuesPath, "[RBL]\t71\t2");
  WriteDefaultSpamWeights(run);
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
}

TEST_F(WriteDefaultsTest, KeepsEmptyLines) {
  files.Put(kDefaultsPath, "\r\n[A]\tOne\t1\t2\r\n\r\n[B]\tTwo\t3\t4\r\n\r\n");
  WriteDefaultSpamWeights(run);
  EXPECT_EQ(Values(), "\r\n[A]\t1\t2\r\n\r\n[B]\t3\t4\r\n");
}

TEST_F(WriteDefaultsTest, WithoutDefaultsEmptiesTheValues) {
  files.Delete(kDefaultsPath);
  files.Put(kValuesPath, "[RBL]\t71\t2");
  WriteDefaultSpamWeights(run);
  EXPECT_EQ(Values(), "");
}

}  // namespace
}  // namespace qv::test
