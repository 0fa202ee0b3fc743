#include "input/length_limits.h"

#include <QRadioButton>

#include "core/numbers.h"
#include "core/plan.h"
#include "input/life_options.h"
#include "input/rules/frequency.h"
#include "input/rules/limits.h"
#include "widgets/masked_date_edit.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

QString payments(std::optional<int> number, const Scenario& scenario) {
    return number ? to_qt(payments_text(*number, scenario.frequency)) : QString();
}

}  // namespace

QString number_limit(Module1& module) {
    const QString most =
        payments(most_payments(module.scenario, module.database(), module.today()), module.scenario);
    return most.isEmpty() ? QString() : u"At most "_s + most;
}

QString amount_limit(Module1& module) {
    const auto least = least_amount(module.scenario, module.database(), module.today());
    return least ? u"At least %1 a %2"_s.arg(to_qt(format_number(*least, pattern::dollars)),
                                             to_qt(plan::period_name(module.scenario.frequency)))
                 : QString();
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
