// A stand-in for the downloader of standalone programs. It speaks to the simulated controller's
// program memory by commands that real controllers do not have.
#include <QCoreApplication>

#include "platform/NumberConversion.h"
#include "simulator/standins/Device.h"
#include "simulator/standins/Listing.h"

namespace zlt::standins {
namespace {

Device openDevice(const Tool& tool) {
    for (const char* key : {"LIN", "COM", "POR", "BAU", "DEV", "FIL", "MOD"})
        static_cast<void>(tool.value(key));
    const auto port = parseInteger(tool.value("POR"));
    if (!port)
        throw Failure("POR is not a port number.");
    const std::string& id = tool.value("DEV");
    if (id.size() != 2 || id.find_first_not_of("0123456789") != std::string::npos)
        throw Failure("DEV is not a device number of two digits.");
    return {PortNumber{*port}, tool.value("BAU"), id};
}

std::string linesFor(const Lines& code, const char* verb, const Device& device) {
    return std::to_string(code.size()) + " lines " + verb + " " + device.name() + ".";
}

Lines download(const Tool& tool) {
    // The listing first, so that a bad one leaves the controller's program alone.
    const std::string& file = tool.value("FIL");
    const Lines code = codeOfListing(file, tool.read(file));
    Device device = openDevice(tool);
    device.write(code);
    return {tool.status(linesFor(code, "sent to", device))};
}

Lines clear(const Tool& tool) {
    Device device = openDevice(tool);
    device.clear();
    return {tool.status(device.name() + " cleared.")};
}

Lines upload(const Tool& tool) {
    Device device = openDevice(tool);
    const Lines code = device.read();
    return listingOf(tool.status(linesFor(code, "read from", device)), code);
}

}  // namespace
}  // namespace zlt::standins

int main(int argc, char** argv) {
    using namespace zlt::standins;
    const QCoreApplication application(argc, argv);
    Tool tool("stand-in downloader", "sa_download_upload_setup.txt", "DownloadOut.txt");
    return tool.run([&tool] {
        const std::string& operation = tool.value("OPE");
        if (operation == "DOWNLOAD")
            return download(tool);
        if (operation == "CLEAR")
            return clear(tool);
        if (operation == "UPLOAD") {
            tool.writeResultTo("UploadOut.txt");
            return upload(tool);
        }
        throw Failure("OPE is neither DOWNLOAD nor CLEAR nor UPLOAD.");
    });
}
