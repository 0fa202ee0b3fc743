#include "shell/notes/note_screens.h"

using namespace Qt::StringLiterals;

namespace kelvar {

const std::vector<Note>& notes() {
    // Double and trailing blanks belong to the texts.
    static const std::
        vector<Note>
            all{
                {ScreenId::frmethod,
                 "frmethod",
                 {{u"Method:"_s,
                   u"You may elect to receive distribution of your funds on a monthly, quarterly, semi-annual (every six months), or annual basis. Over the life of the distribution process, your account will continue to be valued daily, you can continue to request account transfers at any time, and you will still receive quarterly statements and be charged administrative fees. "_s}}},
                {ScreenId::frmlengt,
                 "frmlengt",
                 {{u"Length:"_s,
                   u"If you choose periodic payments, you may select the number of payments you want to receive. You may not, however, choose payments beyond your life expectancy. Payments may be made to you in monthly, quarterly, semi-annual, or annual installments."_s}}},
                {ScreenId::frmtimin,
                 "frmtimin",
                 {{u"Commencement Date:"_s, u"Distribution of your account may commence:"_s},
                  {{},
                   u"any month after payroll has verified your terminated status. However, payment need not begin immediately. You may defer payment to a future date, the latest being the March 31st of the year after you reach age 70 ½."_s}}},
                {ScreenId::frmderrmsg,
                 "frmderrmsg",
                 {{u"Rollover funds out of the 457 and 401(k) Plan"_s, {}},
                  {u"457 Plan:"_s,
                   u"Upon severance from City employment, participants in the 457 Plan can rollover their account to either another eligible retirement plan (457, 401(k) or 403(b)) or an IRA. 457 Plan participants who choose to rollover their account to a 401(k) or 403(b) plan or to an IRA will become subject to the 10% early withdrawal penalty if they take a distribution from the other plan or IRA before age 59 1/2, unless an exception applies."_s},
                  {u"401(k) Plan:"_s,
                   u"401(k) Plan participants, either upon severance from City employment or upon reaching age 59 1/2, can rollover their account to either another eligible retirement plan (457,401(k) or 403(b)) or an IRA."_s}}},
            };
    return all;
}

NoteScreen::NoteScreen(Module1& module1, const Note& note)
    : Screen(module1, note.id, note.name, {.title = u"Please Note..."_s, .kind = Layout::Kind::note}) {
    add_paragraphs(note.paragraphs);
    content()->addStretch(1);
}

}  // namespace kelvar
