#include "app/demo/demo_servers.h"

namespace qv {

namespace {

constexpr const char* kOfficeScript =
    "' Large messages are held outside office hours only.\r\n"
    "FilterResult = 0\r\n"
    "If CriteriaMet([QV_SIZE],\"10485760\") Then\r\n"
    "  If Hour(Now) < 7 Or Hour(Now) > 18 Then FilterResult = 1\r\n"
    "End If\r\n";

constexpr const char* kDraftScript =
    "' A draft: offers that several people were sent at once.\r\n"
    "If CriteriaMet([QV_SUBJECT],\"*offer*\") And CriteriaMet([QV_TOorCC],\"*all@*\") Then\r\n"
    "  FilterResult = 1\r\n"
    "End If\r\n";

void AddPostoffices(DemoBuilder& builder) {
  const std::vector<DemoPostoffice> postoffices = {
      {"harbour.example.com",
       "Harbour Trading",
       {"anna.berg", "ben.costa", "clara.diaz", "david.ek", "postmaster", "reception", "emil.frank"}},
      {"sales.example.com",
       "Harbour Trading",
       {"fiona.grant", "george.hill", "orders", "quotes", "helen.ito", "offers"}},
      {"support.example.com", "Harbour Trading", {"helpdesk", "ivan.jones", "karin.lund", "returns", "on-call"}},
      {"accounts.example.com",
       "Harbour Trading",
       {"invoices", "laura.moretti", "nils.olsen", "payroll", "zoë.peeters"}},
      {"warehouse.example.net",
       "Harbour Logistics",
       {"dispatch", "gate", "paul.quinn", "rosa.silva", "stock", "tom.ueda"}},
      {"events.example.org", "Harbour Events", {"booking", "press", "uma.vogel", "wim.xavier", "yara.zimmer"}},
  };
  for (const DemoPostoffice& postoffice : postoffices) {
    builder.AddPostoffice(postoffice);
    builder.AddOption(1, postoffice.name, "Postoffice-PostofficeRulesStatus", "1");
  }
  for (const char* mailbox : {"harbour.example.com/anna.berg", "harbour.example.com/ben.costa",
                              "sales.example.com/orders", "support.example.com/helpdesk"}) {
    builder.AddOption(2, mailbox, "MailBox-MailboxRulesStatus", "1");
  }
  builder.AddOption(2, "accounts.example.com/payroll", "MailBox-MailboxRulesStatus", "0");
}

void AddSystemFilters(DemoBuilder& builder) {
  const std::vector<DemoFilter> filters = {
      {"Messages with a virus",
       "",
       "",
       {{15, ""}},
       {{"COPY_TO_QUARANTINE", ""},
        {"NOTIFY_RECIPIENTS", "QVFILTER-Held for review", "A message to you held a virus."},
        {"DELETE", ""}}},
      {"Programs as attachments",
       "",
       "",
       {{9, "*.exe,*.scr,*.com,*.bat,*.cmd,*.js,*.vbs,*.pif"}},
       {{"COPY_TO_QUARANTINE", ""},
        {"NOTIFY_SENDER", "QVFILTER-Blocked attachment", "The attachment is of a kind that is not accepted."},
        {"DELETE", ""}}},
      {"Trusted senders",
       "",
       "",
       {{7, "<REFERENCE><FILE>QVFILTER-Trusted senders.TXT</FILE></REFERENCE>"}},
       {{"STOP_PROCESSING", ""}}},
      {"Whitelisted hosts", "", "", {{23, "1"}}, {{"ADD_HEADER", "X-QV-Content|Whitelisted"}, {"STOP_PROCESSING", ""}}},
      {"Blocked words",
       "",
       "",
       {{1, "<REFERENCE><FILE>QVFILTER-Blocked words.TXT</FILE></REFERENCE>"}, {2, "casino bonus,miracle cure"}},
       {{"ADD_HEADER", "X-QV-Content|Deliver-To=Junk", "Mark message as spam"}}},
      {"Certain spam", "", "", {{13, "95"}}, {{"ADD_HEADER", "X-QV-Content|Deliver-To=Junk", "Mark message as spam"}}},
      {"Links to blacklisted hosts", "", "", {{21, "1"}}, {{"ADD_SUBJECT_PREFIX", "[suspicious] "}}},
      {"SPF failures from our own domains",
       "",
       "",
       {{14, "fail"}, {7, "*@*.example.com"}},
       {{"COPY_TO_BADMAIL", ""}, {"DELETE", ""}}},
      {"Broken DKIM signatures", "", "", {{24, "0"}}, {{"ADD_HEADER", "X-QV-Signature|broken"}}, 0},
      {"Very large messages",
       "",
       "",
       {{8, "26214400"}},
       {{"NOTIFY_SENDER", "QVFILTER-Message too large", "The message is too large."},
        {"COPY_TO_BADMAIL", ""},
        {"DELETE", ""}}},
      {"Large messages out of hours", "", "", {}, {{"COPY_TO_QUARANTINE", ""}}, 1, "By a script", kOfficeScript},
      {"Mail of the old gateway", "", "", {{18, "192.0.2.*"}, {20, "SMTP"}}, {{"STOP_PROCESSING", ""}}, 0},
      {"Copy for the archive",
       "",
       "",
       {{16, ""}},
       {{"FORWARD_TO_ADDRESS", "[SMTP:archive@harbour.example.com]"},
        {"EXECUTE_APPLICATION", "/opt/archive/index|[ID] --quiet"}}},
  };
  for (const DemoFilter& filter : filters) builder.AddFilter(filter);
}

void AddPostofficeFilters(DemoBuilder& builder) {
  const std::vector<DemoFilter> filters = {
      {"Newsletters",
       "harbour.example.com",
       "",
       {{12, "List-Unsubscribe,Precedence: bulk"}},
       {{"ADD_SUBJECT_PREFIX", "[news] "}}},
      {"Disclaimer for outside mail",
       "harbour.example.com",
       "",
       {{17, "0", 0}, {20, "SMTP"}},
       {{"ADD_HEADER", "X-QV-Origin|outside"}}},
      {"Large quotations",
       "sales.example.com",
       "",
       {{8, "5242880"}, {1, "quotation,quote,offer"}},
       {{"NOTIFY_ADDRESS", "<REFERENCE><ADDRESS>orders@sales.example.com</ADDRESS><FILE></FILE></REFERENCE>",
         "A large quotation has come in."}}},
      {"Competitors' offers",
       "sales.example.com",
       "",
       {{7, "<REFERENCE><FILE>QVFILTER-Competitors.TXT</FILE></REFERENCE>"}},
       {{"FORWARD_TO_ADDRESS", "[SMTP:fiona.grant@sales.example.com]"}}},
      {"Offers to everybody",
       "sales.example.com",
       "",
       {},
       {{"ADD_SUBJECT_PREFIX", "[offer] "}},
       1,
       "",
       kDraftScript,
       false},
      {"Urgent tickets",
       "support.example.com",
       "",
       {{6, "High"}, {1, "down,outage,urgent"}},
       {{"NOTIFY_ADDRESS",
         "<REFERENCE><ADDRESS>on-call@support.example.com</ADDRESS><FILE>QVFILTER-Held for review</FILE></REFERENCE>",
         "An urgent ticket has come in."}}},
      {"Invoices with attachments",
       "accounts.example.com",
       "",
       {{9, "*.pdf,*.xml"}, {1, "invoice,Rechnung,facture"}},
       {{"FORWARD_TO_ADDRESS", "[SMTP:invoices@accounts.example.com]"}}},
      {"Faked payment orders",
       "accounts.example.com",
       "",
       {{14, "softfail"}, {2, "change of bank details,wire transfer"}},
       {{"COPY_TO_QUARANTINE", ""}, {"DELETE", ""}}},
      {"Delivery notes",
       "warehouse.example.net",
       "",
       {{10, "1"}, {3, "dispatch"}},
       {{"ADD_HEADER", "X-QV-Kind|delivery"}}},
      {"Mail from the sales office",
       "warehouse.example.net",
       "",
       {{19, "sales.example.com"}},
       {{"STOP_PROCESSING", ""}}},
      {"Press requests",
       "events.example.org",
       "",
       {{5, "press@"}, {1, "interview,press"}},
       {{"FORWARD_TO_ADDRESS", "[SMTP:uma.vogel@events.example.org]"}}},
  };
  for (const DemoFilter& filter : filters) builder.AddFilter(filter);
}

void AddMailboxFilters(DemoBuilder& builder) {
  const std::vector<DemoFilter> filters = {
      {"Team lists", "harbour.example.com", "anna.berg", {{5, "team@harbour.example.com"}}, {{"MOVE", "Inbox/Team"}}},
      {"Reports", "harbour.example.com", "anna.berg", {{1, "weekly report"}}, {{"COPY", "Reports"}}},
      {"Junk", "harbour.example.com", "anna.berg", {{2, "lottery,winner,crypto"}}, {{"JUNK", ""}}},
      {"Café vouchers", "harbour.example.com", "ben.costa", {{1, "Café,voucher"}}, {{"DELETE", ""}}},
      {"Large files", "harbour.example.com", "ben.costa", {{8, "1048576"}}, {{"MOVE", "Large"}}, 0},
      {"Orders by form", "sales.example.com", "orders", {{7, "form@example.com"}}, {{"MOVE", "Orders/Form"}}},
      {"Doubtful orders", "sales.example.com", "orders", {{14, "fail"}}, {{"QUARANTINE", ""}}},
      {"Automatic replies", "support.example.com", "helpdesk", {{12, "Auto-Submitted"}}, {{"DELETE", ""}}},
      {"Customers' tickets",
       "support.example.com",
       "helpdesk",
       {{7, "<REFERENCE><FILE>QVFILTER-Customers.TXT</FILE></REFERENCE>"}},
       {{"MOVE", "Inbox/Customers"}}},
      {"Salary slips", "accounts.example.com", "payroll", {{9, "slip*.pdf"}}, {{"COPY", "Slips"}}},
  };
  for (const DemoFilter& filter : filters) builder.AddFilter(filter);
}

}  // namespace

DemoServer MakeHarbourServer() {
  DemoBuilder builder(1);
  AddPostoffices(builder);
  AddSystemFilters(builder);
  AddServerDefaults(builder);
  AddPostofficeFilters(builder);
  AddMailboxFilters(builder);
  builder.AddOption(0, "GLOBAL", "SpamThresholdLow", "40");
  builder.AddOption(0, "GLOBAL", "SpamThresholdMedium", "60");
  builder.AddOption(0, "GLOBAL", "SpamThresholdHigh", "85");
  builder.AddFile("Filters/patterns/QVFILTER-Blocked words.TXT",
                  {"lottery", "no prescription", "double your income", "risk free", "act now"});
  builder.AddFile("Filters/patterns/QVFILTER-Trusted senders.TXT",
                  {"*@partner.example.net", "*@bank.example.org", "office@tax.example.org"});
  builder.AddFile("Filters/patterns/QVFILTER-Customers.txt", {"*@customer-one.example", "*@customer-two.example"});
  builder.AddFile("postoffices/sales.example.com/rules/QVFILTER-Competitors.TXT",
                  {"*@rival.example", "*@other-rival.example"});
  builder.AddFile("postoffices/support.example.com/mailboxes/helpdesk/rules/QVFILTER-Customers.TXT",
                  {"*@customer-one.example", "*@customer-two.example", "*@müller.example"});
  return builder.Take();
}

}  // namespace qv
