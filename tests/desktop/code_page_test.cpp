#include "desktop/code_page.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/text.h"

namespace qv {
namespace {

TEST(CodePageTest, TheMiddleOfTheTable) {
  const std::pair<unsigned char, const char*> table[] = {
      {0x80, "€"}, {0x81, "\xC2\x81"}, {0x82, "‚"},        {0x83, "ƒ"}, {0x84, "„"}, {0x85, "…"}, {0x86, "†"},
      {0x87, "‡"}, {0x88, "ˆ"},        {0x89, "‰"},        {0x8A, "Š"}, {0x8B, "‹"}, {0x8C, "Œ"}, {0x8D, "\xC2\x8D"},
      {0x8E, "Ž"}, {0x8F, "\xC2\x8F"}, {0x90, "\xC2\x90"}, {0x91, "‘"}, {0x92, "’"}, {0x93, "“"}, {0x94, "”"},
      {0x95, "•"}, {0x96, "–"},        {0x97, "—"},        {0x98, "˜"}, {0x99, "™"}, {0x9A, "š"}, {0x9B, "›"},
      {0x9C, "œ"}, {0x9D, "\xC2\x9D"}, {0x9E, "ž"},        {0x9F, "Ÿ"},
  };
  int bytes = 0;
  for (const auto& [byte, text] : table) {
    const std::string one(1, static_cast<char>(byte));
    EXPECT_EQ(FromCodePage(one), text) << int(byte);
    EXPECT_EQ(ToCodePage(text), one) << int(byte);
    ++bytes;
  }
  EXPECT_EQ(bytes, 32);
}

TEST(CodePageTest, AllOthersAreTheirOwnNumber) {
  for (int byte = 0; byte < 256; ++byte) {
    if (byte >= 0x80 && byte <= 0x9F) continue;
    const std::string one(1, static_cast<char>(byte));
    EXPECT_EQ(ToCharacters(FromCodePage(one)), std::u32string(1, static_cast<char32_t>(byte)));
    EXPECT_EQ(ToCodePage(FromCodePage(one)), one);
  }
}

TEST(CodePageTest, WhatThePageLacksIsAQuestionMark) {
  EXPECT_EQ(ToCodePage("aΩb"), "a?b");
  EXPECT_EQ(ToCodePage("😀"), "?");
  EXPECT_EQ(ToCodePage("\xC2\x80"), "?");
  EXPECT_EQ(ToCodePage("Ā"), "?");
  EXPECT_EQ(ToCodePage("x\xFFy"), "x?y");
}

TEST(CodePageTest, Words) {
  EXPECT_EQ(ToCodePage("Grüße für 5 €\r\n"),
            "Gr\xFC\xDF"
            "e f\xFCr 5 \x80\r\n");
  EXPECT_EQ(FromCodePage("Gr\xFC\xDF"
                         "e"),
            "Grüße");
}

}  // namespace
}  // namespace qv
