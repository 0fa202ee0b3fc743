// Every message of the input screens: shown once, letter for letter, with the focus where it belongs.

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <functional>

#include "tests/support/ui_harness.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

struct MessageCase {
    const char* name;
    std::function<void(UiTest&)> act;
    std::string message;
    const char* focus;
};

std::ostream& operator<<(std::ostream& out, const MessageCase& c) {
    return out << c.name;
}

class InputMessage : public UiTest, public ::testing::WithParamInterface<MessageCase> {};

TEST_P(InputMessage, IsShownOnceWithTheFocusOnItsField) {
    const MessageCase& c = GetParam();
    c.act(*this);
    EXPECT_EQ(take_messages(), std::vector<std::string>{c.message});
    EXPECT_EQ(focus_name(), QString::fromLatin1(c.focus));
}

std::function<void(UiTest&)> birth(const QString& typed) {
    return [typed](UiTest& t) {
        t.go_to_participant();
        t.enter("mskbirth", typed);
    };
}

std::function<void(UiTest&)> balance_then_next(const QString& typed) {
    return [typed](UiTest& t) {
        t.go_to_participant();
        t.enter("mskbirth", u"06151950"_s);
        t.enter("txtcurvalue", typed);
        t.click("Cmdnext");
    };
}

std::function<void(UiTest&)> length(const char* option, const char* box, const QString& typed) {
    return [=](UiTest& t) {
        t.go_to_length();
        t.click(option);
        t.type_into(box, typed);
        t.click("Cmdnext");
    };
}

std::function<void(UiTest&)> spouse(const QString& typed) {
    return [typed](UiTest& t) {
        t.go_to_length();
        t.click("optlength_2");
        t.click("oplifeexp_1");
        t.type_into("mskbenebirth", typed);
        t.click("Cmdnext");
    };
}

const std::string invalid_month = "Invalid month that you wish to begin payments.";
const std::string no_birth = "Invalid birth date.";
const std::string no_value = "Invalid present value of the account.";
const std::string no_spouse = "Please enter the birthdate of your spouse.";
const std::string too_many =
    "The number of payments will exceed your life expectancy or result in an amount below your minimum "
    "distribution. Please reduce the number of payments!";

const MessageCase cases[] = {
    {"ImpossibleDate", birth(u"02301950"_s), no_birth, "mskbirth"},
    {"HalfADate", birth(u"0615"_s), no_birth, "mskbirth"},
    {"BornInTheFuture", birth(u"06152031"_s), no_birth, "mskbirth"},
    {"TooYoung", birth(u"01152004"_s), "The current age should be at least 16 years!", "mskbirth"},
    {"TooOld", birth(u"06151918"_s), "The current age should not axceed 100 years old.", "mskbirth"},
    {"LetterInTheBalance",
     [](UiTest& t) {
         t.go_to_participant();
         t.type_into("txtcurvalue", u"25x"_s);
     },
     "Invalid present value of the account", "txtcurvalue"},
    {"EmptyBalanceComesBeforeEmptyBirth",
     [](UiTest& t) {
         t.go_to_participant();
         t.click("Cmdnext");
     },
     no_value, "txtcurvalue"},
    {"EmptyBirth",
     [](UiTest& t) {
         t.go_to_participant();
         t.enter("txtcurvalue", u"1000"_s);
         t.click("Cmdnext");
     },
     no_birth, "mskbirth"},
    {"TwoSigns", balance_then_next(u"--5"_s), no_value, "txtcurvalue"},
    {"NotFinite", balance_then_next(u"1e400"_s), no_value, "txtcurvalue"},
    {"ThirtyDigits", balance_then_next(QString(30, u'9')), no_value, "txtcurvalue"},
    {"WrongGrouping", balance_then_next(u"25,00"_s), no_value, "txtcurvalue"},
    {"HalfACent", balance_then_next(u"0.004"_s), no_value, "txtcurvalue"},
    {"GroupAfterAZero", balance_then_next(u"0,500"_s), no_value, "txtcurvalue"},
    {"HalfACentBeyondTheLimit", balance_then_next(u"9999999999999.995"_s), no_value, "txtcurvalue"},
    {"PastedTextThatIsTooLong",
     [](UiTest& t) {
         t.go_to_participant();
         t.click("txtcurvalue");
         QGuiApplication::clipboard()->setText(QString(58, u' ') + u"250000"_s);
         t.press(Qt::Key_V, Qt::ControlModifier);
     },
     "Invalid present value of the account", "txtcurvalue"},
    {"RefusedBirthStopsNextAsWell",
     [](UiTest& t) {
         t.go_to_participant();
         t.enter("mskbirth", u"06151950"_s);
         t.enter("txtcurvalue", u"1000"_s);
         t.type_into("mskbirth", u"13151950"_s);
         t.click("Cmdnext");
     },
     no_birth, "mskbirth"},
    {"MonthPassedWhileTheScreenWasOpen",
     [](UiTest& t) {
         t.go_to_participant();
         t.enter("mskbirth", u"06151950"_s);
         t.enter("txtcurvalue", u"1000"_s);
         t.today = Date{std::chrono::year{2020} / 2 / 1};
         t.click("Cmdnext");
     },
     invalid_month, "Cmbfrstmonth"},
    {"FirstMonthPassedBeforeTheResult",
     [](UiTest& t) {
         t.today = Date{std::chrono::year{2020} / 1 / 31};
         t.go_to_method(u"06151950"_s, u"250000"_s, u"January"_s, u"2020"_s);
         t.click("optmethod_0");
         t.click("Cmdnext");
         t.click("chkrate_1");
         t.today = Date{std::chrono::year{2020} / 2 / 1};
         t.click("Cmdnext");
     },
     invalid_month, "Cmbfrstmonth"},
    {"ClockSetBackBeforeTheResultOfAPartialLumpSum",
     [](UiTest& t) {
         t.today = Date{std::chrono::year{2021} / 1 / 15};
         t.go_to_method(u"06151950"_s, u"250000"_s, u"February"_s, u"2021"_s);
         t.click("optmethod_2");
         t.enter("txtpartial", u"100000"_s);
         t.click("chkpartial_0");
         t.click("Cmdnext");
         t.click("optlength_2");
         t.click("Cmdnext");
         t.click("chkrate_1");
         t.today = Date{std::chrono::year{2020} / 12 / 1};
         t.click("Cmdnext");
         // The list offers what can be chosen now.
         EXPECT_EQ(t.find<QComboBox>("Cmbfrstyear")->itemText(0), u"2020"_s);
     },
     invalid_month, "Cmbfrstmonth"},
    {"NoFrequency",
     [](UiTest& t) {
         t.go_to_method();
         t.click("optmethod_1");
         t.click("Cmdnext");
     },
     "Invalid periodic payments selection. Select frequency of period payments.", "chkperiod_0"},
    {"NothingChosen",
     [](UiTest& t) {
         t.go_to_length();
         t.click("Cmdnext");
     },
     "Invalid mumber of payments.", "optlength_0"},
    {"EmptyNumber", length("optlength_0", "txtnumber", {}), "Invalid mumber of payments.", "txtnumber"},
    {"NumberIsAWord", length("optlength_0", "txtnumber", u"nan"_s), "Invalid mumber of payments.",
     "txtnumber"},
    {"NumberThatIsTooLong", length("optlength_0", "txtnumber", QString(58, u' ') + u"120"_s),
     "Invalid mumber of payments.", "txtnumber"},
    {"NumberBeyondLife", length("optlength_0", "txtnumber", u"350"_s), too_many, "txtnumber"},
    {"NumberBeyondCounting", length("optlength_0", "txtnumber", u"50000"_s), too_many, "txtnumber"},
    {"AmountBelowACent", length("optlength_1", "txtfixamount", u"0.004"_s),
     "Invalid dollar amount of payments", "txtfixamount"},
    {"AmountTooSmall", length("optlength_1", "txtfixamount", u"500"_s),
     "This amount will be below your minimum distribution or would result in payments beyond "
     "your life expectancy. Please increase the dollar amount!",
     "txtfixamount"},
    {"SpouseWithoutDate", spouse({}), no_spouse, "mskbenebirth"},
    {"SpouseWithImpossibleDate", spouse(u"02301965"_s), no_spouse, "mskbenebirth"},
    {"SpouseTooYoung", spouse(u"06151986"_s),
     "You can select Joint Life Expectancy only if your spouse is at least 35 years old, and "
     "is at least 10 years younger than you!",
     "oplifeexp_0"},
    {"SpouseTenYearsYounger", spouse(u"06151960"_s),
     "You cannot select Joint Life Expectancy. It is an option only when your spouse is more "
     "than 10 years younger than you.",
     "oplifeexp_0"},
    {"ParticipantTooOldForJointLife",
     [](UiTest& t) {
         t.go_to_method(u"06151928"_s, u"250000"_s, u"July"_s, u"2020"_s);
         t.click("optmethod_1");
         t.click("chkperiod_0");
         t.click("Cmdnext");
         t.click("optlength_2");
         t.click("oplifeexp_1");
     },
     "Join Life Expectancy is not available when either you or your spouse is older than 90 "
     "years!",
     "oplifeexp_0"},
    {"NoRate",
     [](UiTest& t) {
         t.go_to_rates();
         t.click("Cmdnext");
     },
     "Select one or more annual rate of return.", "chkrate_0"},
};

std::string name_of(const ::testing::TestParamInfo<MessageCase>& tested) {
    return tested.param.name;
}

INSTANTIATE_TEST_SUITE_P(Screens, InputMessage, ::testing::ValuesIn(cases), name_of);

}  // namespace

}  // namespace kelvar::test
