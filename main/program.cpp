#include "main/program.h"

#include <utility>

#include "main/all_screens.h"

namespace kelvar {

Program::Program(const std::filesystem::path& folder, Clock clock)
    : window_(std::make_unique<MainWindow>()) {
    module_ = std::make_unique<Module1>(*window_, folder, std::move(clock));
    add_all_screens(*window_, *module_);
}

void Program::open() {
    window_->load(*module_);
    window_->show();
}

}  // namespace kelvar
