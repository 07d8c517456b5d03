#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/Options.h"
#include "simulator/Simulator.h"

int main(int argc, char** argv) {
    try {
        const auto options = zlt::sim::parseOptions(
            std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
        if (options.help) {
            std::cout << zlt::sim::helpText();
            return 0;
        }
        zlt::sim::Simulator(options).run();
        return 0;
    } catch (const std::invalid_argument& error) {
        std::cerr << "zlt-sim: " << error.what() << '\n';
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "zlt-sim: " << error.what() << '\n';
        return 1;
    }
}
