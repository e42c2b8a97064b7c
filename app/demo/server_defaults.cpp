#include "app/demo/demo_servers.h"

namespace qv {

namespace {

std::vector<DemoSpamTest> SpamTests() {
  return {
      {"SENDER_BLOCKED", "Sender is on the administrator's blocked list", 1000, 0},
      {"SENDER_UNKNOWN", "Sender is not on the administrator's trusted list", 0, 1000},
      {"SPF_FAIL", "SPF: the sending host is not allowed to send for the domain", 35, 0},
      {"SPF_SOFTFAIL", "SPF: the sending host is probably not allowed", 15, 0},
      {"SPF_NONE", "SPF: the sender's domain publishes no record", 4, 2},
      {"DKIM_FAIL", "DKIM: the signature does not verify", 25, 0},
      {"DKIM_NONE", "DKIM: the message carries no signature", 3, 4},
      {"HELO_MISMATCH", "The greeting of the sending host is not its name", 8, 0},
      {"NO_REVERSE_DNS", "The sending host has no reverse name", 12, 0},
      {"DYNAMIC_HOST", "The sending host looks like a home connection", 14, 0},
      {"LISTED_HOST", "The sending host is on a public block list", 30, 3},
      {"LISTED_URL", "A link in the body leads to a listed host", 40, 2},
      {"URL_IP_ADDRESS", "A link in the body names a host by its number", 18, 0},
      {"URL_MISMATCH", "A link shows one address and leads to another", 28, 0},
      {"URL_SHORTENER", "A link goes through a shortening service", 6, 0},
      {"SUBJECT_CAPITALS", "The subject is written in capitals", 5, 0},
      {"SUBJECT_EMPTY", "The subject is empty", 4, 0},
      {"SUBJECT_FAKE_REPLY", "The subject pretends to be a reply", 7, 0},
      {"BODY_HTML_ONLY", "The body has HTML and no plain text", 3, 1},
      {"BODY_IMAGE_ONLY", "The body is one picture with little text", 16, 0},
      {"BODY_HIDDEN_TEXT", "The body hides text in the background colour", 22, 0},
      {"BODY_WORDS", "The body uses words of the spam word list", 20, 2},
      {"PROBABILITY_HIGH", "Word statistics give more than 90 percent", 45, 0},
      {"PROBABILITY_MEDIUM", "Word statistics give more than 60 percent", 20, 0},
      {"PROBABILITY_LOW", "Word statistics give more than 10 percent", 2, 12},
      {"FROM_FORGED", "The From header and the envelope disagree", 9, 1},
      {"FROM_NO_ADDRESS", "The From header holds no address", 15, 0},
      {"DATE_MISSING", "The message has no date", 8, 0},
      {"DATE_FUTURE", "The date lies more than a day ahead", 10, 0},
      {"ATTACHMENT_PROGRAM", "An attachment is a program", 50, 0},
      {"ATTACHMENT_DOUBLE", "An attachment has two file extensions", 24, 0},
      {"MANY_RECIPIENTS", "The message has more than 50 recipients", 6, 0},
  };
}

}  // namespace

void AddServerDefaults(DemoBuilder& builder) {
  builder.AddWord(R"(SOFTWARE\quillvane\quillvane\agents\mta\filters)", "Enabled", 1);
  builder.AddWord(R"(SOFTWARE\quillvane\quillvane\agents\mta\filters\mtafilter)", "Status", 1);
  builder.AddWord(R"(SOFTWARE\quillvane\quillvane\agents\mta\filters\MTAFILTER)", "Scripting Status", 1);
  builder.AddWord(R"(SOFTWARE\quillvane\quillvane\connectors\sf)", "Process Mailbox Spam Filters", 1);
  builder.AddWord(R"(SOFTWARE\quillvane\quillvane)", "IPv6 Status", 1);
  builder.AddSpamProtection(SpamTests(), 1);
  builder.AddFile("Filters/templates/QVFILTER-Blocked attachment.TXT",
                  {"Your message was not delivered.", "",
                   "It carried a file of a kind that this server does not accept. Please send the file in",
                   "another way, or ask the person you wrote to for an upload address."});
  builder.AddFile("Filters/templates/QVFILTER-Message too large.TXT",
                  {"Your message was not delivered.", "", "It is larger than this server accepts."});
  builder.AddFile("Filters/templates/QVFILTER-Held for review.txt",
                  {"A message to you is held for review.", "", "The postmaster will release it or drop it."});
}

}  // namespace qv
