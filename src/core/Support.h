// Where users find help: settings of the build.
#pragma once
#include "base/Text.h"

#ifndef FERNCASTLE_SUPPORT_SITE
#define FERNCASTLE_SUPPORT_SITE "http://www.ferncastle.example"
#endif
#ifndef FERNCASTLE_SUPPORT_MAIL
#define FERNCASTLE_SUPPORT_MAIL "support@ferncastle.example"
#endif

inline constexpr const char *SupportSite = FERNCASTLE_SUPPORT_SITE;  // its paths /help and /contact are served
inline constexpr const char *SupportMail = FERNCASTLE_SUPPORT_MAIL;
