#include "input/length_limits.h"

#include <QRadioButton>

#include "core/numbers.h"
#include "core/plan.h"
#include "engine/least_amount.h"
#include "input/life_options.h"
#include "input/rules/frequency.h"
#include "input/rules/limits.h"
#include "input/rules/rates.h"
#include "input/rules/typed_numbers.h"
#include "widgets/masked_date_edit.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

QString dollars(double amount) {
    return to_qt(format_number(amount, pattern::dollars));
}

QString payments(std::optional<int> number, const Scenario& scenario) {
    return number ? to_qt(payments_text(*number, scenario.frequency)) : QString();
}

// The limit counts no growth: an amount that passes it can still outlast the life expectancy.
QString lasting_amount(Module1& module) {
    if (module.scenario.length_option != by_dollar_amount) {
        return {};
    }
    const auto tried = with_amount(module.scenario, module.database(), module.today());
    const std::vector<double> rates = rate_list(module.database().rate(), {true});
    return tried ? to_qt(least_amount_text(*tried, rates, module.today())) : QString();
}

}  // namespace

QString number_limit(Module1& module) {
    const QString most =
        payments(most_payments(module.scenario, module.database(), module.today()), module.scenario);
    return most.isEmpty() ? QString() : u"At most "_s + most;
}

QString amount_limit(Module1& module, const QString& typed) {
    QStringList sentences;
    if (const auto least = least_amount(module.scenario, module.database(), module.today())) {
        sentences << u"At least %1 a %2, more if the account grows"_s.arg(
            dollars(*least), to_qt(plan::frequency(module.scenario.frequency).period));
    }
    const QString lasting = lasting_amount(module);
    if (!lasting.isEmpty()) {
        sentences << lasting.chopped(1);
    }
    const double amount = round_to_cents(get_num(to_utf8(typed)).value_or(0.0));
    const double balance = module.scenario.present_value;
    if (amount > balance) {
        sentences << u"Entered: %1, above the balance; %2 counts"_s.arg(dollars(amount),
                                                                        dollars(balance));
    } else if (amount != 0.0) {
        sentences << u"Entered: "_s + dollars(amount) +
                         (amount == balance ? u", the balance"_s : QString());
    }
    return sentences.join(u". "_s);
}

QString spouse_limit(Module1& module) {
    const auto [after, up_to] = spouse_births(module.scenario.current_age, module.today());
    return u"More than ten years younger: born after %1; at least 35: born up to %2"_s.arg(
        to_qt(date_text(after)), to_qt(date_text(up_to)));
}

QString life_limit(Module1& module, const LifeOptions& options) {
    const Scenario& scenario = module.scenario;
    const std::string spouse = to_utf8(options.spouse_birth()->mask_text());
    return payments(options.joint()->isChecked()
                        ? payments_over_joint_life(scenario, spouse, module.database(), module.today())
                        : payments_over_life(scenario, module.database(), module.today()),
                    scenario);
}

}  // namespace kelvar
