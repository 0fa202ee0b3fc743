#include "input/rules/joint_life.h"

#include "core/ages.h"
#include "core/plan.h"

namespace kelvar {

Check check_joint_life(Date birth, Date today) {
    if (currentage(birth, today) <= plan::oldest_for_joint_life) {
        return std::nullopt;
    }
    return Refusal{
        "Join Life Expectancy is not available when either you or your spouse is older than 90 years!",
        "oplifeexp_0"};
}

}  // namespace kelvar
