#include "tests/support/stations.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

void go_to_result(UiTest& program, const char* method) {
    program.go_to_method();
    program.click(method);
    if (method == std::string_view("optmethod_2")) {
        program.enter("txtpartial", u"40000"_s);
        program.click("chkpartial_1");
    } else if (method == std::string_view("optmethod_1")) {
        program.click("chkperiod_1");
    }
    program.click("Cmdnext");
    if (method != std::string_view("optmethod_0")) {
        program.click("optlength_2");
        program.click("Cmdnext");
    }
    program.click("chkrate_0");
    program.click("Cmdnext");
}

Station note(const char* name, ScreenId id) {
    return {name, [id](UiTest& program) {
                program.go_to_menu();
                program.window->show(id);
            }};
}

}  // namespace

const std::vector<Station>& stations() {
    static const std::vector<Station> all{
        {"frmkelvd", [](UiTest&) {}},
        {"frmdist", [](UiTest& program) { program.go_to_menu(); }},
        {"frmdist1", [](UiTest& program) { program.go_to_participant(); }},
        {"frmdist2",
         [](UiTest& program) {
             program.go_to_method();
             program.click("optmethod_2");
         }},
        {"frmdist3",
         [](UiTest& program) {
             program.go_to_length();
             program.click("optlength_2");
             program.click("oplifeexp_1");
         }},
        {"frmdrate", [](UiTest& program) { program.go_to_rates(); }},
        {"frmlump", [](UiTest& program) { go_to_result(program, "optmethod_0"); }},
        {"frmperio", [](UiTest& program) { go_to_result(program, "optmethod_1"); }},
        {"frmparti", [](UiTest& program) { go_to_result(program, "optmethod_2"); }},
        {"frmcompare",
         [](UiTest& program) {
             go_to_result(program, "optmethod_1");
             program.click("cmdcompare");
         }},
        {"frmchoices",
         [](UiTest& program) {
             go_to_result(program, "optmethod_0");
             program.click("cmdkeep");
             program.click("cmdprev");
             program.click("cmdprev");
             program.click("optmethod_2");
             program.enter("txtpartial", u"40000"_s);
             program.click("chkpartial_1");
             program.click("Cmdnext");
             program.click("optlength_2");
             program.click("Cmdnext");
             program.click("Cmdnext");
             program.click("cmdkeep");
             program.click("cmdchoices");
         }},
        {"frmcperi",
         [](UiTest& program) {
             go_to_result(program, "optmethod_1");
             program.click("cmdchart");
         }},
        {"frmcpart",
         [](UiTest& program) {
             go_to_result(program, "optmethod_2");
             program.click("pichart");
         }},
        {"frmdnote",
         [](UiTest& program) {
             program.go_to_rates();
             program.click("picnote");
         }},
        note("frmvang", ScreenId::frmvang),
        note("frmvang1", ScreenId::frmvang1),
        note("frmlife", ScreenId::frmlife),
        note("frmtimin", ScreenId::frmtimin),
        note("frmethod", ScreenId::frmethod),
        note("frmlengt", ScreenId::frmlengt),
        note("frmderrmsg", ScreenId::frmderrmsg),
    };
    return all;
}

}  // namespace kelvar::test
