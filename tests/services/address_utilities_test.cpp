#include "services/address_utilities.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#if __has_include(<arpa/inet.h>)
#include <arpa/inet.h>
#endif

#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

constexpr const char* kServer = "SOFTWARE\\quillvane\\quillvane";
constexpr const char* kStatus = "IPv6 Status";

TEST(EmailAddress, NeedsAnAtSignBehindTheFirstCharacter) {
  for (const char* address : {"joe@abc.com", "a@", "a@b", "a@@", "a@b@c", ".@", "o'neil+x@abc", "a@b.c.d"}) {
    EXPECT_TRUE(IsValidEmailAddress(address)) << address;
  }
  for (const char* address : {"", "@", "@abc.com", "@a@b", "joe", "joe.abc.com"}) {
    EXPECT_FALSE(IsValidEmailAddress(address)) << address;
  }
}

TEST(EmailAddress, TakesEachOfItsCharactersAndNoOther) {
  const std::string allowed = ".@!#$&'*+-/0123456789=?ABCDEFGHIJKLMNOPQRSTUVWXYZ^_`abcdefghijklmnopqrstuvwxyz{|}~";
  for (int code = 0; code < 128; ++code) {
    const char character = static_cast<char>(code);
    const bool expected = allowed.find(character) != std::string::npos;
    EXPECT_EQ(IsValidEmailAddress(std::string("a@") + character), expected) << code;
    EXPECT_EQ(IsValidEmailAddress(std::string("a") + character + "@b"), expected) << code;
  }
  EXPECT_FALSE(IsValidEmailAddress("jö@abc.com"));
  EXPECT_FALSE(IsValidEmailAddress("joe @abc.com"));
  EXPECT_FALSE(IsValidEmailAddress("joe@abc.com "));
  EXPECT_FALSE(IsValidEmailAddress("a%b@c"));
}

struct IPAddress : ::testing::Test, test::TestRun {
  bool Ex(const std::string& address, bool wildcard, bool partial, const std::string& connector = "") {
    return IsValidIPAddressEx(run, address, wildcard, partial, connector);
  }
  bool Plain(const std::string& address) { return Ex(address, false, false); }
};

TEST_F(IPAddress, IsFourNumbersFrom0To255) {
  for (const char* address : {"0.0.0.0", "1.2.3.4", "255.255.255.255", "001.02.3.4", "192.168.0.1"}) {
    EXPECT_TRUE(Plain(address)) << address;
  }
  for (const char* address : {"", ".", "...", "1.2.3", "1.2.3.4.5", "1.2.3.", ".1.2.3", "256.1.1.1", "1.256.1.1",
                              "1.1.256.1", "1.1.1.256", "-1.1.1.1", "a.1.1.1", "1.1.1.1,2.2.2.2", "1..1.1", "::1"}) {
    EXPECT_FALSE(Plain(address)) << address;
  }
}

TEST_F(IPAddress, ReadsAPartByItsLeadingNumber) {
  // Numeric, with the value of what stands at the front.
  for (const char* part :
       {"1e2", "1d2", " 7", "7 ", "+7", "7-", "1,000", "$900", "(900)", "&HFF", "&O17", "2555e-1", "2559e-1", "2,56"}) {
    EXPECT_TRUE(Plain(std::string("1.") + part + ".3.4")) << part;
  }
  for (const char* part : {"1e3", "256,0", "-7", "- 7", "&H100", "&HFFFF", "256", "300-", "1 2", "7x", "1e"}) {
    EXPECT_FALSE(Plain(std::string("1.") + part + ".3.4")) << part;
  }
}

TEST_F(IPAddress, TakesAStarWithWildcardsOnly) {
  for (const char* address : {"*.*.*.*", "*.2.3.4", "1.*.3.4", "1.2.*.4", "1.2.3.*"}) {
    EXPECT_TRUE(Ex(address, true, false)) << address;
    EXPECT_FALSE(Ex(address, false, false)) << address;
  }
  EXPECT_FALSE(Ex("**.2.3.4", true, false));
  EXPECT_FALSE(Ex("1*.2.3.4", true, false));
  EXPECT_FALSE(Ex("*", true, false));
}

TEST_F(IPAddress, TakesFewerPartsAsAPartialAddressOnly) {
  for (const char* address : {"1", "1.2", "1.2.3"}) {
    EXPECT_TRUE(Ex(address, false, true)) << address;
    EXPECT_FALSE(Ex(address, false, false)) << address;
  }
  EXPECT_TRUE(Ex("1.*", true, true));
  EXPECT_FALSE(Ex("1.2.3.4.5", false, true));
  EXPECT_FALSE(Ex("1.2.256", false, true));
  EXPECT_FALSE(Ex("1.2.", false, true));
  EXPECT_FALSE(Ex("", false, true));
}

TEST_F(IPAddress, TheShortFormTakesWildcardsAndNoPartialAddress) {
  EXPECT_TRUE(IsValidIPAddress(run, "1.2.3.*", "SMTP"));
  EXPECT_FALSE(IsValidIPAddress(run, "1.2.3", "SMTP"));
}

TEST_F(IPAddress, GoesToIPv6WhereTheServerHasItOn) {
  EXPECT_FALSE(Ex("2001:db8::1", true, false));
  registry.SetWord(kServer, kStatus, 1);
  EXPECT_TRUE(Ex("2001:db8::1", true, false));
  EXPECT_TRUE(Ex("2001:db8::*", true, false));
  EXPECT_FALSE(Ex("2001:db8::*", false, false));
  EXPECT_TRUE(Ex("2001:db8", false, true));
  EXPECT_FALSE(Ex("2001:db8", false, false));
  EXPECT_TRUE(Ex("1.2.3.4", false, false));
  EXPECT_FALSE(Ex("1.2.3", false, false));
  EXPECT_FALSE(Ex("256.1.1.1", false, false));
  EXPECT_FALSE(Ex("", true, false));
}

TEST_F(IPAddress, IPv6StatusOfTheServer) {
  EXPECT_FALSE(IsIPv6Enabled(run, "SMTP"));
  registry.SetWord(kServer, kStatus, 0);
  EXPECT_FALSE(IsIPv6Enabled(run, "SMTP"));
  registry.SetWord(kServer, kStatus, 1);
  EXPECT_TRUE(IsIPv6Enabled(run, "SMTP"));
  EXPECT_TRUE(IsIPv6Enabled(run, ""));
  registry.SetWord(kServer, kStatus, 3);
  EXPECT_FALSE(IsIPv6Enabled(run, "SMTP"));
  registry.SetText(kServer, kStatus, "1");
  EXPECT_FALSE(IsIPv6Enabled(run, "SMTP"));
}

TEST_F(IPAddress, IPv6StatusOfTheConnector) {
  registry.SetWord(kServer, kStatus, 2);
  EXPECT_FALSE(IsIPv6Enabled(run, "POPS"));
  registry.SetWord("SOFTWARE\\quillvane\\quillvane\\Services\\POP", kStatus, 1);
  EXPECT_TRUE(IsIPv6Enabled(run, "POPS"));
  EXPECT_FALSE(IsIPv6Enabled(run, "POPC"));
  registry.SetWord("SOFTWARE\\quillvane\\quillvane\\Services\\POP", kStatus, 2);
  EXPECT_FALSE(IsIPv6Enabled(run, "POPS"));
  registry.SetWord("", kStatus, 1);
  EXPECT_FALSE(IsIPv6Enabled(run, ""));
  EXPECT_FALSE(IsIPv6Enabled(run, "pops"));
}

TEST_F(IPAddress, TheIPv6StatusOfARemoteServerTakesNoPart) {
  run.ServerHost = "OTHER";
  store.server("OTHER").words["software\\quillvane\\quillvane|ipv6 status"] = "1";
  EXPECT_FALSE(IsIPv6Enabled(run, ""));
}

TEST(ConnectorRegistryKey, HasTheWholeTable) {
  EXPECT_EQ(GetConnectorRegistryKey("LS"), "SOFTWARE\\quillvane\\quillvane\\Connectors\\LS");
  EXPECT_EQ(GetConnectorRegistryKey("POPC"), "SOFTWARE\\quillvane\\quillvane\\Connectors\\POP");
  EXPECT_EQ(GetConnectorRegistryKey("SF"), "SOFTWARE\\quillvane\\quillvane\\Connectors\\SF");
  EXPECT_EQ(GetConnectorRegistryKey("SMS"), "SOFTWARE\\quillvane\\quillvane\\Connectors\\SMS");
  EXPECT_EQ(GetConnectorRegistryKey("SMTP"), "SOFTWARE\\quillvane\\quillvane\\Connectors\\SMTP");
  EXPECT_EQ(GetConnectorRegistryKey("HTTPMAIL"), "SOFTWARE\\quillvane\\quillvane\\Services\\HTTPMAIL");
  EXPECT_EQ(GetConnectorRegistryKey("IMAPS"), "SOFTWARE\\quillvane\\quillvane\\Services\\IMAP");
  EXPECT_EQ(GetConnectorRegistryKey("LDAP"), "SOFTWARE\\quillvane\\quillvane\\Services\\LDAP");
  EXPECT_EQ(GetConnectorRegistryKey("POPS"), "SOFTWARE\\quillvane\\quillvane\\Services\\POP");
  EXPECT_EQ(GetConnectorRegistryKey("POP"), "");
  EXPECT_EQ(GetConnectorRegistryKey("smtp"), "");
  EXPECT_EQ(GetConnectorRegistryKey(""), "");
}

TEST(IPv6Address, TakesFullAndShortForms) {
  for (const char* address : {"::", "::1", "1::", "1::8", "1:2:3:4:5:6:7:8", "2001:db8::1", "2001:DB8:0:0:0:0:0:1",
                              "1:2:3:4:5:6:7::", "::2:3:4:5:6:7:8", "::1.2.3.4", "::ffff:255.255.255.255",
                              "1:2:3:4:5:6:1.2.3.4", "0001:02:3::"}) {
    EXPECT_TRUE(ValidIPv6Address(address, false, false)) << address;
  }
}

TEST(IPv6Address, RefusesEverythingElse) {
  for (const char* address : {"",
                              ":",
                              ":::",
                              "1",
                              "1:2",
                              "1:2:3:4:5:6:7",
                              "1:2:3:4:5:6:7:8:9",
                              "1:2:3:4:5:6:7:8::",
                              "1::2::3",
                              ":1:2::",
                              "1:2:",
                              "::1:",
                              "12345::",
                              "g::",
                              "1.2.3.4",
                              "1.2.3.4::",
                              "::1.2.3",
                              "::1.2.3.4.5",
                              "::256.1.1.1",
                              "::01.2.3.4",
                              "::1.2.3.4:5",
                              "1:2:3:4:5:6:7:1.2.3.4",
                              "fe80::1%eth0",
                              "[::1]",
                              "::1/64",
                              " ::1",
                              "::1 ",
                              "::*",
                              "::-1"}) {
    EXPECT_FALSE(ValidIPv6Address(address, false, false)) << address;
  }
}

TEST(IPv6Address, TakesAStarAsAGroupWithWildcards) {
  for (const char* address : {"2001:db8::*", "*::", "*:*:*:*:*:*:*:*", "1:*:3:4:5:6:7:8"}) {
    EXPECT_TRUE(ValidIPv6Address(address, true, false)) << address;
    EXPECT_FALSE(ValidIPv6Address(address, false, false)) << address;
  }
  EXPECT_FALSE(ValidIPv6Address("*", true, false));
  EXPECT_FALSE(ValidIPv6Address("1*::", true, false));
  EXPECT_FALSE(ValidIPv6Address("::1.2.3.*", true, false));
}

TEST(IPv6Address, MayEndEarlyAsAPartialAddress) {
  for (const char* address : {"2001", "2001:db8", "1:2:3:4:5:6:7"}) {
    EXPECT_TRUE(ValidIPv6Address(address, false, true)) << address;
    EXPECT_FALSE(ValidIPv6Address(address, false, false)) << address;
  }
  for (const char* address : {"", "2001:", ":2001", "1:2:1.2.3.4", "1.2.3.4", "1:2:3:4:5:6:7:8:9"}) {
    EXPECT_FALSE(ValidIPv6Address(address, false, true)) << address;
  }
}

#if __has_include(<arpa/inet.h>)
// The system's own reader of addresses knows neither wildcards nor partial addresses.
RC_GTEST_PROP(IPv6Address, AgreesWithTheSystemsReader, ()) {
  const auto group =
      rc::gen::element<std::string>("", "", "0", "1", "ab", "FFFF", "12345", "g", "1.2.3.4", "300.1.1.1");
  const std::string address = Join(*rc::gen::resize(10, rc::gen::container<std::vector<std::string>>(group)), ":");
  in6_addr out{};
  RC_ASSERT(ValidIPv6Address(address, false, false) == (inet_pton(AF_INET6, address.c_str(), &out) == 1));
}
#endif

}  // namespace
}  // namespace qv
