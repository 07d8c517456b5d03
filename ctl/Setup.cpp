#include "ctl/Setup.h"

#include <filesystem>

#include "parameters/Comparison.h"
#include "platform/Files.h"

namespace zlt::ctl {

Setup::Setup(Context& context)
    : transfer(context.services, context.session.link.handOver(), sheet,
               &context.session.listener()),
      m_context(context) {
    transfer.openPort();
    transfer.upload();
    // The message has said which; most often it is that nothing was said any more.
    if (!unreadFields(transfer.deviceCopy()).empty())
        throw Failure(ExitCode::refused, "");
}

void Setup::take(const ParameterSheet& file) {
    for (const FieldText& field : file.shown)
        sheet.set[field.field] = field.text;
}

void Setup::save(const std::string& file) {
    m_context.gate.file = file;
    ParameterFiles(m_context.services, sheet).save({});
    const FileContent saved = m_context.services.files.read(pathFromUtf8(file));
    if (saved.whole() != parameterFileText(sheet.set))
        throw Failure(ExitCode::refused, "");
}

void withSetup(Context& context, const std::function<void(Setup&)>& action) {
    Session& session = context.session;
    session.runUnjudged([&] {
        session.link.lendPort([&] {
            Setup setup(context);
            action(setup);
        });
    });
}

ParameterSheet openSheet(Context& context, const std::string& file) {
    ParameterSheet sheet;
    context.gate.file = file;
    ParameterFiles(context.services, sheet).open();
    if (!sheet.opened)
        throw Failure(ExitCode::refused, "");
    return sheet;
}

void checkOverwriting(const Context& context, const std::string& file) {
    std::error_code unknown;
    if (!context.gate.yes && std::filesystem::exists(pathFromUtf8(file), unknown))
        throw Failure(ExitCode::refused,
                      "The file " + file + " is there already.  Say --yes to write over it.");
}

}  // namespace zlt::ctl
