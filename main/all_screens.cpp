#include "main/all_screens.h"

#include "input/frmdist1.h"
#include "input/frmdist2.h"
#include "input/frmdist3.h"
#include "input/frmdrate.h"
#include "output/chart/frmcpart.h"
#include "output/chart/frmcperi.h"
#include "output/result/frmcompare.h"
#include "output/result/frmlump.h"
#include "output/result/frmparti.h"
#include "output/result/frmperio.h"
#include "shell/frmdist.h"
#include "shell/frmkelvd.h"
#include "shell/main_window.h"
#include "shell/notes/frmPortfolios.h"
#include "shell/notes/frmclaim.h"
#include "shell/notes/frmdnote.h"
#include "shell/notes/frmlife.h"
#include "shell/notes/frmvang.h"
#include "shell/notes/frmvang1.h"
#include "shell/notes/text_notes.h"

namespace kelvar {

namespace {

template <class ScreenClass>
void add(MainWindow& window, Module1& module, ScreenId id) {
    window.add(id, [&module] { return new ScreenClass(module); });
}

}  // namespace

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

}  // namespace kelvar
