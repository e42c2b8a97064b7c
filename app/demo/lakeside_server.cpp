#include "app/demo/demo_servers.h"

namespace qv {

namespace {

void AddPostoffices(DemoBuilder& builder) {
  const std::vector<DemoPostoffice> postoffices = {
      {"staff.lakeside.example", "Lakeside School", {"head", "office", "library", "m.keller", "s.novak", "caretaker"}},
      {"pupils.lakeside.example", "Lakeside School", {"class-5a", "class-5b", "class-6a", "newspaper"}},
  };
  for (const DemoPostoffice& postoffice : postoffices) builder.AddPostoffice(postoffice);
  builder.AddOption(1, "staff.lakeside.example", "Postoffice-PostofficeRulesStatus", "1");
  builder.AddOption(1, "pupils.lakeside.example", "Postoffice-PostofficeRulesStatus", "0");
}

void AddFilters(DemoBuilder& builder) {
  const std::vector<DemoFilter> filters = {
      {"Viruses", "", "", {{15, ""}}, {{"DELETE", ""}}},
      {"Games and programs", "", "", {{9, "*.exe,*.apk,*.jar"}}, {{"COPY_TO_QUARANTINE", ""}, {"DELETE", ""}}},
      {"Rude words",
       "",
       "",
       {{2, "<REFERENCE><FILE>QVFILTER-Rude words.TXT</FILE></REFERENCE>"}},
       {{"COPY_TO_QUARANTINE", ""}},
       0},
      {"Outside mail", "", "", {{20, "SMTP"}}, {{"ADD_SUBJECT_PREFIX", "[outside] "}}},
      {"Letters to parents", "staff.lakeside.example", "", {{3, "parents@"}}, {{"ADD_HEADER", "X-QV-Kind|letter"}}},
      {"Large pictures", "pupils.lakeside.example", "", {{8, "2097152"}, {9, "*.jpg,*.png"}}, {{"DELETE", ""}}},
      {"Overdue books", "staff.lakeside.example", "library", {{1, "overdue"}}, {{"MOVE", "Overdue"}}},
      {"Junk", "staff.lakeside.example", "office", {{14, "fail"}}, {{"JUNK", ""}}},
  };
  for (const DemoFilter& filter : filters) builder.AddFilter(filter);
}

}  // namespace

DemoServer MakeLakesideServer() {
  DemoBuilder builder(2);
  AddPostoffices(builder);
  AddFilters(builder);
  AddServerDefaults(builder);
  builder.AddOption(0, "GLOBAL", "SpamThresholdLow", "30");
  builder.AddOption(0, "GLOBAL", "SpamThresholdMedium", "50");
  builder.AddOption(0, "GLOBAL", "SpamThresholdHigh", "70");
  builder.AddFile("Filters/patterns/QVFILTER-Rude words.TXT", {"blockhead", "nincompoop"});
  return builder.Take();
}

}  // namespace qv
