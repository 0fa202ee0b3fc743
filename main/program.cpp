#include "main/program.h"

#include <QFile>
#include <utility>

#include "input/frmdist1.h"
#include "input/frmdist2.h"
#include "input/frmdist3.h"
#include "input/frmdrate.h"
#include "output/chart/chart_screen.h"
#include "output/result/frmchoices.h"
#include "output/result/frmcompare.h"
#include "output/result/frmlump.h"
#include "output/result/schedule_result_screen.h"
#include "shell/frmdist.h"
#include "shell/frmkelvd.h"
#include "shell/notes/note_screens.h"

namespace kelvar {

namespace {

template <class ScreenClass>
void add(MainWindow& window, Module1& module, ScreenId id) {
    window.add(id, [&module] { return new ScreenClass(module); });
}

// The only place that knows every screen.
void add_all_screens(MainWindow& window, Module1& module) {
    add<frmkelvd>(window, module, ScreenId::frmkelvd);
    add<frmdist>(window, module, ScreenId::frmdist);
    add<frmdist1>(window, module, ScreenId::frmdist1);
    add<frmdist2>(window, module, ScreenId::frmdist2);
    add<frmdist3>(window, module, ScreenId::frmdist3);
    add<frmdrate>(window, module, ScreenId::frmdrate);
    add<frmlump>(window, module, ScreenId::frmlump);
    add<frmperio>(window, module, ScreenId::frmperio);
    add<frmparti>(window, module, ScreenId::frmparti);
    add<frmcompare>(window, module, ScreenId::frmcompare);
    add<frmchoices>(window, module, ScreenId::frmchoices);
    add<frmcperi>(window, module, ScreenId::frmcperi);
    add<frmcpart>(window, module, ScreenId::frmcpart);
    add<frmdnote>(window, module, ScreenId::frmdnote);
    add<frmvang>(window, module, ScreenId::frmvang);
    add<frmvang1>(window, module, ScreenId::frmvang1);
    add<frmlife>(window, module, ScreenId::frmlife);
    for (const Note& note : notes()) {
        window.add(note.id, [&module, &note] { return new NoteScreen(module, note); });
    }
    window.add_modal(ScreenId::frmPortfolios,
                     [&module](QWidget* parent) { return new frmPortfolios(module, parent); });
    window.add_modal(ScreenId::frmclaim, [](QWidget* parent) { return new frmclaim(parent); });
}

}  // namespace

Program::Program(const std::filesystem::path& folder, Clock clock)
    : window_(std::make_unique<MainWindow>()) {
    module_ = std::make_unique<Module1>(*window_, folder, std::move(clock));
    add_all_screens(*window_, *module_);
}

void Program::open(const std::filesystem::path& participant) {
    window_->load(*module_);
    window_->show();
    if (!participant.empty()) {
        window_->open_file(QFile::decodeName(participant.c_str()));
    }
}

}  // namespace kelvar
