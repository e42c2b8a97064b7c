#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "hosts/web/access.h"
#include "hosts/web/front_door.h"
#include "tests/hosts/web_fixture.h"

namespace qv::testing {
namespace {

using ::testing::StartsWith;

TEST(WebAssets, GzipIsReadFromTheHeader) {
  EXPECT_TRUE(TakesGzip("gzip"));
  EXPECT_TRUE(TakesGzip("br, GZIP;q=0.5"));
  EXPECT_TRUE(TakesGzip("*"));
  EXPECT_TRUE(TakesGzip("*;q=0, gzip"));
  EXPECT_FALSE(TakesGzip(""));
  EXPECT_FALSE(TakesGzip("br, deflate"));
  EXPECT_FALSE(TakesGzip("gzip;q=0"));
  EXPECT_FALSE(TakesGzip("gzip; q=0.0, *"));
  EXPECT_FALSE(TakesGzip("xgzip"));
}

TEST(WebAssets, WhatGzipPacksIsUnpacked) {
  const char* path = std::getenv("TMPDIR");
  const std::string name = std::string(path ? path : "/tmp") + "/qvadmin-test-" + std::to_string(getpid());
  unsigned random = 1;
  for (std::size_t length = 1; length < 40'000; length = length * 5 / 4 + 1) {
    std::string text;
    while (text.size() < length) text += "abcdefghijkl mnop{}:;\n"[(random = random * 1103515245 + 12345) >> 16 & 15];
    std::FILE* file = std::fopen(name.c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    std::FILE* packer = popen(("gzip -9nc " + name).c_str(), "r");
    std::string packed(text.size() + 100, '\0');
    packed.resize(std::fread(packed.data(), 1, packed.size(), packer));
    pclose(packer);
    EXPECT_EQ(Inflate(packed), text) << length;
  }
  std::remove(name.c_str());
}

TEST(WebAssets, ADamagedFileIsNotHandedOut) {
  EXPECT_EQ(Inflate(kHelloGzip), "hello\n");
  EXPECT_THROW(Inflate(""), RuntimeError);
  EXPECT_THROW(Inflate(kHelloGzip.substr(0, 20)), RuntimeError);
  std::string longer(kHelloGzip);
  longer[22] = 7;
  EXPECT_THROW(Inflate(longer), RuntimeError);
  std::string named(kHelloGzip);
  named[3] = 8;
  EXPECT_THROW(Inflate(named), RuntimeError);
}

TEST(WebAssets, TheProgramHoldsAPage) {
  const Asset* page = FindAsset(EmbeddedAssets(), "/");
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(page->path, "/index.html");
  EXPECT_THAT(Inflate(page->gzip), StartsWith("<!doctype html>"));
  for (const Asset& asset : EmbeddedAssets()) EXPECT_GT(Inflate(asset.gzip).size(), 0u) << asset.path;
}

TEST(Access, ATokenCountsOnceAndOldOnesRunOut) {
  WebAccess access;
  const std::string token = access.NewToken();
  EXPECT_EQ(token.size(), 64u);
  EXPECT_EQ(access.Redeem("") + access.Redeem(token.substr(1)) + access.Redeem(token + "0"), "");
  const std::string key = access.Redeem(token);
  EXPECT_EQ(key.size(), 64u);
  EXPECT_NE(key, token);
  EXPECT_EQ(access.Redeem(token), "");
  EXPECT_TRUE(access.Knows(key));
  EXPECT_FALSE(access.Knows(token));
  EXPECT_FALSE(access.Knows(""));
  const std::string old = access.NewToken();
  for (int i = 0; i < 16; ++i) access.NewToken();
  EXPECT_EQ(access.Redeem(old), "");
}

TEST(Access, SecretsCompareWhole) {
  EXPECT_TRUE(SameSecret("abc", "abc"));
  EXPECT_TRUE(SameSecret("", ""));
  EXPECT_FALSE(SameSecret("abc", "abd"));
  EXPECT_FALSE(SameSecret("abc", "bbc"));
  EXPECT_FALSE(SameSecret("abc", "ab"));
}

}  // namespace
}  // namespace qv::testing
