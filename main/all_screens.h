#pragma once

namespace kelvar {

class MainWindow;
class Module1;

// Makes every screen of the program known to the main window. The only place that knows them all.
void add_all_screens(MainWindow& window, Module1& module);

}  // namespace kelvar
