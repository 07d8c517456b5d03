#include "platform_qt/QtFiles.h"

#include <QFile>
#include <QSaveFile>
#include <algorithm>

#include "platform_qt/ThisSystem.h"

namespace zlt {
namespace {

namespace fs = std::filesystem;
using Reason = std::optional<std::string>;

/// What stands under a name in place of a file. To open a pipe would wait for its other end, and
/// to save would put a file in a device's place.
Reason otherThanFile(fs::file_type type) {
    switch (type) {
        case fs::file_type::fifo:
            return "it is a named pipe, not a file";
        case fs::file_type::socket:
            return "it is a socket, not a file";
        case fs::file_type::block:
        case fs::file_type::character:
            return "it is a device, not a file";
        case fs::file_type::directory:
            return "it is a folder, not a file";
        default:
            return std::nullopt;
    }
}

constexpr auto limit = static_cast<qint64>(longestFile);

std::string beyondLimit(qint64 size) {
    const std::string most = std::to_string(limit);
    if (size > limit)
        return "it holds " + std::to_string(size) + " bytes, and at most " + most + " are read";
    return "it holds more than the " + most + " bytes that are read";
}

/// Why something failed, to stand within a sentence: Windows' reasons are sentences of their own.
std::string reasonOf(const QFileDevice& file) {
    QString reason = file.errorString();
    while (reason.endsWith(QLatin1Char('.')))
        reason.chop(1);
    return reason.toStdString();
}

/// Writes at an unbuffered file's present place, down to the disk: a buffer would hide that it is
/// full.
Reason put(QFileDevice& file, std::string_view bytes) {
    // A disk that fills up takes a part and tells why only when it is given the rest.
    while (!bytes.empty()) {
        const qint64 taken = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (taken <= 0)
            return reasonOf(file);
        bytes.remove_prefix(static_cast<std::size_t>(taken));
    }
    return synchronise(file);
}

/// Brings an open file from the bytes it holds to others, and back again where that fails.
Reason writeOver(QFile& file, const QByteArray& before, std::string_view bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    // What is to come past the old end first: only that needs room that may not be there.
    const auto shared = std::min(bytes.size(), static_cast<std::size_t>(before.size()));
    Reason reason;
    if (!file.seek(before.size()) || (reason = put(file, bytes.substr(shared)))) {
        file.resize(before.size());
        return reason ? reason : reasonOf(file);
    }
    file.seek(0);
    if (!(reason = put(file, bytes.substr(0, shared))) && file.resize(size))
        return std::nullopt;
    if (!reason)
        reason = reasonOf(file);
    file.unsetError();
    if (!file.seek(0) || put(file, {before.data(), static_cast<std::size_t>(before.size())}) ||
        !file.resize(before.size()))
        *reason += ".  What stood there is lost";
    return reason;
}

/// For a file that may be written in a folder where none may be made. `refusal` is why it was not
/// made.
std::optional<WriteFailure> writeInPlace(const fs::path& path, std::string_view bytes,
                                         const std::string& refusal) {
    QFile file(fromPath(path));
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return WriteFailure{WriteFailure::Kind::noAccess, refusal};
    const QByteArray before = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return WriteFailure{WriteFailure::Kind::failed, reasonOf(file)};
    if (auto reason = writeOver(file, before, bytes))
        return WriteFailure{WriteFailure::Kind::failed, *std::move(reason)};
    return std::nullopt;
}

}  // namespace

FileContent QtFiles::read(const fs::path& path) {
    using Kind = FileContent::Kind;
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (!fs::exists(status))
        return {Kind::absent, {}, failure.message()};
    if (auto other = otherThanFile(status.type()))
        return {Kind::notAFile, {}, *std::move(other)};
    QFile file(fromPath(path));
    if (!file.open(QIODevice::ReadOnly))
        return {Kind::unreadable, {}, reasonOf(file)};
    if (file.size() > limit)
        return {Kind::tooLarge, {}, beyondLimit(file.size())};
    const QByteArray bytes = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError)
        return {bytes.isEmpty() ? Kind::unreadable : Kind::brokenOff, bytes.toStdString(),
                reasonOf(file)};
    if (bytes.size() > limit)
        return {Kind::tooLarge, {}, beyondLimit(file.size())};
    return {Kind::whole, bytes.toStdString(), {}};
}

std::optional<WriteFailure> QtFiles::writeWhole(const fs::path& path, std::string_view bytes) {
    using Kind = WriteFailure::Kind;
    std::error_code unknown;
    const fs::file_type type = fs::status(path, unknown).type();
    if (auto other = otherThanFile(type))
        return WriteFailure{type == fs::file_type::directory ? Kind::noAccess : Kind::failed,
                            *std::move(other)};
    QSaveFile file(fromPath(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return writeInPlace(path, bytes, reasonOf(file));
    // commit() would not look at what its own flush came to.
    if (auto reason = put(file, bytes))
        return WriteFailure{Kind::failed, *std::move(reason)};
    if (!file.commit())
        return writeInPlace(path, bytes, reasonOf(file));
    return std::nullopt;
}

}  // namespace zlt
