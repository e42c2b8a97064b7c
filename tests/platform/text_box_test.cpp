#include "platform/text_box.h"

#include "tests/platform/forms_fixture.h"

namespace qv::test {
namespace {

struct TextBoxes : Forms {};

TEST_F(TextBoxes, AssignedTextIsCutAndPutsTheCaretFirst) {
  form.short_text.SetText("\u00e4\u00f6\u00fc\u00df\u20ac!!");
  EXPECT_EQ(form.short_text.Text(), "\u00e4\u00f6\u00fc\u00df\u20ac");
  EXPECT_EQ(form.short_text.SelStart(), 0u);
}

TEST_F(TextBoxes, PastedTextIsCutAndPutsTheCaretLast) {
  form.short_text.Paste("1234567");
  EXPECT_EQ(form.short_text.Text(), "12345");
  EXPECT_EQ(form.short_text.SelStart(), 5u);
  form.digits.Paste("a1");
  EXPECT_EQ(form.digits.Text(), "a1");
}

TEST_F(TextBoxes, TypingGoesInAtTheCaretInPlaceOfTheSelection) {
  form.text.SetText("abc");
  form.text.Select(1, 1);
  form.text.Type("XY");
  EXPECT_EQ(form.text.Text(), "aXYc");
  EXPECT_EQ(form.text.SelStart(), 3u);
  EXPECT_EQ(form.text.SelLength(), 0u);
}

TEST_F(TextBoxes, TypingPassesTheKeyFilter) {
  form.digits.Type("a1-2.3\r");
  EXPECT_EQ(form.digits.Text(), "123");
  form.digits.Type("\b");
  EXPECT_EQ(form.digits.Text(), "12");
}

TEST_F(TextBoxes, TypingStopsAtTheMaximumLength) {
  form.short_text.Type("123456");
  EXPECT_EQ(form.short_text.Text(), "12345");
  form.short_text.Select(0, 2);
  form.short_text.Type("ab");
  EXPECT_EQ(form.short_text.Text(), "ab345");
}

TEST_F(TextBoxes, BackspaceDeletesTheSelectionOrTheCharacterBefore) {
  form.text.SetText("a\u20acc");
  form.text.Select(2, 0);
  form.text.Type("\b");
  EXPECT_EQ(form.text.Text(), "ac");
  form.text.Select(0, 2);
  form.text.Type("\b\b");
  EXPECT_EQ(form.text.Text(), "");
}

TEST_F(TextBoxes, ReturnMakesALineWhereThereAreLines) {
  form.lines.Type("a\rb\r\nc");
  EXPECT_EQ(form.lines.Text(), "a\r\nb\r\nc");
  form.lines.Select(6, 0);
  form.lines.Type("\b");
  EXPECT_EQ(form.lines.Text(), "a\r\nbc");
  form.text.Type("a\rb");
  EXPECT_EQ(form.text.Text(), "ab");
}

TEST_F(TextBoxes, ADifferentTextRunsTheChangeHandler) {
  form.text.SetText("a");
  form.text.SetText("a");
  form.text.Type("b");
  form.text.Paste("ba");
  EXPECT_EQ(form.log, "change;change;");
}

TEST_F(TextBoxes, ASelectionIsBroughtIntoTheText) {
  form.text.SetText("abc");
  form.text.Select(9, 9);
  EXPECT_EQ(form.text.SelStart(), 3u);
  EXPECT_EQ(form.text.SelLength(), 0u);
  form.text.Select(1, 9);
  EXPECT_EQ(form.text.SelLength(), 2u);
}

}  // namespace
}  // namespace qv::test
