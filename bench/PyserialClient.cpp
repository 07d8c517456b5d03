#include "bench/PyserialClient.h"

#include <sstream>
#include <stdexcept>

namespace zlt::bench {
namespace {

constexpr int scriptPatienceMs = 60'000;

QString withoutEndMark(std::string_view line) {
    line.remove_suffix(1);
    return QString::fromLatin1(line.data(), static_cast<qsizetype>(line.size()));
}

}  // namespace

PyserialClient::PyserialClient(PacedPeer& peer, const std::string& python) : Client(peer) {
    m_script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_script.start(
        QString::fromStdString(python),
        {QStringLiteral(ZLT_PYSERIAL_CLIENT), QString::fromStdString(peer.device()),
         QString::number(peer.line().baud), withoutEndMark(request), withoutEndMark(reply)});
}

PyserialClient::~PyserialClient() {
    m_script.closeWriteChannel();
    m_script.waitForFinished(scriptPatienceMs);
}

void PyserialClient::runRound(long exchanges, Samples& samples) {
    peer().requestsUnannounced();
    m_script.write(QByteArray::number(qlonglong{warmUps} + exchanges) + '\n');
    while (!m_script.canReadLine())
        if (!m_script.waitForReadyRead(scriptPatienceMs))
            throw std::runtime_error(
                "no answer from pyserial; ./bench/run sees to it that it is "
                "installed, --python says for which interpreter");
    std::istringstream times(m_script.readLine().toStdString());
    long long taken = 0;
    for (long number = -warmUps; times >> taken; ++number)
        if (taken < 0)
            ++samples.lost;
        else if (number >= 0)
            samples.taken.emplace_back(taken);
}

}  // namespace zlt::bench
