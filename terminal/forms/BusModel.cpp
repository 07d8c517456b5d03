#include "terminal/forms/BusModel.h"

#include <QColor>
#include <algorithm>
#include <string>

#include "link/BusText.h"
#include "terminal/BusListing.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

// Both carry white text in light and in dark surroundings.
constexpr QColor lostColour(0xc6, 0x28, 0x28);
constexpr QColor timeOutColour(0xa6, 0x4b, 0x00);

std::string textOf(const BusRecord& record, int column) {
    switch (column) {
        case BusModel::time:
            return timeOfDay(record.begun);
        case BusModel::port:
            return cellOf(record, BusColumn::port);
        case BusModel::device:
            return cellOf(record, BusColumn::device);
        case BusModel::askedBy:
            return cellOf(record, BusColumn::askedBy);
        case BusModel::command:
            return cellOf(record, BusColumn::command);
        case BusModel::reply:
            return cellOf(record, BusColumn::reply);
        case BusModel::taken:
            return cellOf(record, BusColumn::taken) + " ";  // away from the next column
        default:
            return cellOf(record, BusColumn::result);
    }
}

}  // namespace

int BusModel::append(const std::vector<BusRecord>& records) {
    if (records.empty())
        return 0;
    const std::size_t all = m_rows.size() + records.size();
    const std::size_t tooMany = all - std::min(all, BusListing::longest);
    if (tooMany >= m_rows.size() && !m_rows.empty()) {
        const int before = rowCount();
        clear();
        append(records);
        return before;
    }
    if (tooMany > 0) {
        beginRemoveRows({}, 0, static_cast<int>(tooMany) - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + static_cast<std::ptrdiff_t>(tooMany));
        endRemoveRows();
    }
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(records.size()) - 1);
    m_rows.insert(m_rows.end(), records.begin(), records.end());
    endInsertRows();
    return static_cast<int>(tooMany);
}

void BusModel::clear() {
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

int BusModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int BusModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant BusModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const BusRecord& record = row(index.row());
    const bool failed = record.outcome == Outcome::timedOut || record.outcome == Outcome::portLost;
    switch (role) {
        case Qt::DisplayRole:
            return fromUtf8(textOf(record, index.column()));
        case Qt::TextAlignmentRole:
            return int(index.column() == taken ? Qt::AlignRight | Qt::AlignVCenter
                                               : Qt::AlignLeft | Qt::AlignVCenter);
        case Qt::BackgroundRole:
            if (failed && index.column() == result)
                return record.outcome == Outcome::portLost ? lostColour : timeOutColour;
            return {};
        case Qt::ForegroundRole:
            return failed && index.column() == result ? QVariant(QColor(Qt::white)) : QVariant();
        default:
            return {};
    }
}

QVariant BusModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(section == taken ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
        case time:
            return tr("Time");
        case port:
            return tr("Port");
        case device:
            return tr("Device");
        case askedBy:
            return tr("Asked by");
        case command:
            return tr("Command");
        case reply:
            return tr("Reply");
        case taken:
            return tr("Took ");
        default:
            return tr("Result");
    }
}

}  // namespace zlt
