// Where users find support. The build sets these addresses.
#pragma once
#include "base/Text.h"

#ifndef FERNCASTLE_SUPPORT_SITE
#define FERNCASTLE_SUPPORT_SITE "http://www.ferncastle.example"
#endif
#ifndef FERNCASTLE_SUPPORT_MAIL
#define FERNCASTLE_SUPPORT_MAIL "support@ferncastle.example"
#endif

inline constexpr const char *SupportSite = FERNCASTLE_SUPPORT_SITE;  // frmHelp opens its paths /help and /contact
inline constexpr const char *SupportMail = FERNCASTLE_SUPPORT_MAIL;
