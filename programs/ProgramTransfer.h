#pragma once

#include <string>

#include "link/PanelLink.h"
#include "programs/ProgramActions.h"

namespace zlt {

/// Download, upload and clear through the external downloader, which opens the port itself.
class ProgramTransfer {
 public:
    ProgramTransfer(const Services& services, PanelLink& link, ProgramView& view)
        : m_services(services), m_link(link), m_view(view), m_tools(services, view) {}

    // Each asks the controller first, lends the port to the tool and blocks until that has ended;
    // its result is told. They throw ToolError, the port taken back, when a tool did not do its
    // part, or would not come to this controller.

    /// Stop both threads, then send the last listing, or erase the program memory. Without
    /// communication they say so and do nothing.
    void DownloadSAP_Click() { sendToController("DOWNLOAD"); }
    void clearSpace_Click() { sendToController("CLEAR"); }
    /// Replaces the program in the box by the controller's, or by the tool's words. Without
    /// communication it does nothing.
    void UploadSAP_Click();

    /// Set at the start and by each download and clear. Nothing reads it yet.
    int reinitialise = 1;

 private:
    /// The controller's device number and baud rate, as it reports them itself.
    struct Target {
        std::string deviceNumber;
        std::string baudText;
    };
    Target askTarget();
    /// Throws ToolError where the downloader, which looks the port number up by itself, would come
    /// to another device.
    void checkPortNumber() const;
    void sendToController(const char* operation);
    void writeSetup(const Target& target, const char* operation, const char* lines);
    void readProgramBack();

    const Services& m_services;
    PanelLink& m_link;
    ProgramView& m_view;
    ToolRunner m_tools;
};

}  // namespace zlt
