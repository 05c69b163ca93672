// Places of the host as the program names them, and links where tests can make any.
#pragma once
#include "base/Text.h"
#include <filesystem>
#include <gtest/gtest.h>

// The form in which the program names a place of the host.
inline Text HostForm(const std::filesystem::path &thePath)
{
    return std::filesystem::absolute(thePath).generic_string();
}

// A symbolic link. Where the library can't make any, as on Windows, nothing is there.
inline void PutLink(const std::filesystem::path &theTarget, const std::filesystem::path &theLink)
{
    std::error_code error;
    std::filesystem::create_symlink(theTarget, theLink, error);
    EXPECT_TRUE(!error || error == std::errc::function_not_supported) << error.message();
}
