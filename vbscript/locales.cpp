#include "vbscript/locales.h"

#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

constexpr Locale kLocales[] = {
    kHostLocale,
    {1025, u"ar-sa", u'.'},
    {1026, u"bg-bg", u','},
    {1027, u"ca-es", u','},
    {1028, u"zh-tw", u'.'},
    {1029, u"cs-cz", u','},
    {1030, u"da-dk", u','},
    {1031, u"de-de", u','},
    {1032, u"el-gr", u','},
    {1034, u"es-es", u','},
    {1035, u"fi-fi", u','},
    {1036, u"fr-fr", u','},
    {1037, u"he-il", u'.'},
    {1038, u"hu-hu", u','},
    {1039, u"is-is", u','},
    {1040, u"it-it", u','},
    {1041, u"ja-jp", u'.'},
    {1042, u"ko-kr", u'.'},
    {1043, u"nl-nl", u','},
    {1044, u"nb-no", u','},
    {1045, u"pl-pl", u','},
    {1046, u"pt-br", u','},
    {1048, u"ro-ro", u','},
    {1049, u"ru-ru", u','},
    {1050, u"hr-hr", u','},
    {1051, u"sk-sk", u','},
    {1053, u"sv-se", u','},
    {1054, u"th-th", u'.'},
    {1055, u"tr-tr", u','},
    {1057, u"id-id", u','},
    {1058, u"uk-ua", u','},
    {1060, u"sl-si", u','},
    {1061, u"et-ee", u','},
    {1062, u"lv-lv", u','},
    {1063, u"lt-lt", u','},
    {1066, u"vi-vn", u','},
    {2052, u"zh-cn", u'.'},
    {2055, u"de-ch", u'.'},
    {2057, u"en-gb", u'.'},
    {2058, u"es-mx", u'.'},
    {2060, u"fr-be", u','},
    {2070, u"pt-pt", u','},
    {3079, u"de-at", u','},
    {3081, u"en-au", u'.'},
    {3084, u"fr-ca", u','},
    {4105, u"en-ca", u'.'},
    {5129, u"en-nz", u'.'},
    {6153, u"en-ie", u'.'},
    {7177, u"en-za", u'.'},
};

// Short names that stand for a language's main country.
constexpr Locale kLanguages[] = {
    {1033, u"en", u'.'}, {1031, u"de", u','}, {1036, u"fr", u','}, {1034, u"es", u','}, {1040, u"it", u','},
    {1043, u"nl", u','}, {1046, u"pt", u','}, {1049, u"ru", u','}, {1041, u"ja", u'.'}, {2052, u"zh", u'.'},
};

}  // namespace

const Locale* FindLocale(int id) {
  if (id == 0 || id == 1024 || id == 2048) return &kHostLocale;
  for (const Locale& locale : kLocales) {
    if (locale.id == id) return &locale;
  }
  return nullptr;
}

const Locale* FindLocale(std::u16string_view tag) {
  if (tag.empty()) return &kHostLocale;
  for (const Locale& locale : kLocales) {
    if (Compare(tag, locale.tag, true) == 0) return &locale;
  }
  for (const Locale& locale : kLanguages) {
    if (Compare(tag, locale.tag, true) == 0) return &locale;
  }
  return nullptr;
}

}  // namespace qv::vbscript
