#include "app/Regional.h"
#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace {

/// A setting of the user's region, as the system's own control panel changes it; restored at the end.
class UserSetting {
public:
    UserSetting(LCTYPE setting, const wchar_t* value) : m_setting(setting) {
        wchar_t before[80] = L"";
        GetLocaleInfoW(LOCALE_USER_DEFAULT, setting, before, 80);
        m_before = before;
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, setting, value));
    }
    ~UserSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, m_setting, m_before.c_str()); }
    UserSetting(const UserSetting&) = delete;
    UserSetting& operator=(const UserSetting&) = delete;

private:
    LCTYPE m_setting;
    std::wstring m_before;
};

quorvane::RegionalSettings ofTheUser() {
    return dalvora::regionalSettings(QLocale::system());
}

} // namespace

TEST(UserSettingsTest, AreThoseOfTheUsersCountry) {
    ASSERT_EQ(QLocale::system().language(), QLocale::Spanish);
    const auto settings = ofTheUser();
    EXPECT_EQ(settings.decimalSeparator, u',');
    EXPECT_EQ(settings.groupSeparator, u'.');
    EXPECT_EQ(settings.dateSeparator, u'-');
}

TEST(UserSettingsTest, FollowWhatTheUserChangedInTheControlPanel) {
    const UserSetting decimal(LOCALE_SDECIMAL, L".");
    const UserSetting group(LOCALE_STHOUSAND, L"'");
    const UserSetting date(LOCALE_SSHORTDATE, L"dd/MM/yyyy");
    const auto settings = ofTheUser();
    EXPECT_EQ(settings.decimalSeparator, u'.');
    EXPECT_EQ(settings.groupSeparator, u'\'');
    EXPECT_EQ(settings.dateSeparator, u'/');
}
