// A stand-in for the compiler of standalone programs. It knows nothing of the language: a line
// that begins with "?" is an error, every other line is taken as it is.
#include "simulator/standins/Listing.h"
#include "simulator/standins/Tool.h"

namespace zlt::standins {
namespace {

Lines compile(const Tool& tool) {
    const Lines program = tool.read(tool.value("FIL"));
    Lines code;
    Lines errors;
    for (const std::string& line : program) {
        code.push_back(codeOfLine(line));
        if (line.starts_with('?'))
            errors.push_back("Line: " + std::to_string(code.size()));
    }
    if (!errors.empty())
        throw Failure("errors, which here are the lines that begin with \"?\".", errors);
    return listingOf(tool.status("only lines that begin with \"?\" are errors."), code);
}

Lines decompile(const Tool& tool) {
    const std::string& image = tool.value("FIL");
    Lines program;
    for (const std::string& code : codeOfListing(image, tool.read(image)))
        program.push_back(lineOfCode(code));
    return program;
}

}  // namespace
}  // namespace zlt::standins

int main() {
    using namespace zlt::standins;
    Tool tool("stand-in compiler", "sa_compile_decompile_setup.txt", "CompileOut.txt");
    return tool.run([&tool] {
        const std::string& operation = tool.value("OPE");
        const bool decompiles = operation == "DECOMPILE";
        if (decompiles)
            tool.writeResultTo("DecompileOut.prg");
        else if (operation != "COMPILE")
            throw Failure("OPE is neither COMPILE nor DECOMPILE.");
        static_cast<void>(tool.value("MOD"));
        return decompiles ? decompile(tool) : compile(tool);
    });
}
