#pragma once

#include <QAbstractTableModel>
#include <deque>
#include <vector>

#include "link/BusLog.h"

namespace zlt {

/// The rows of the bus monitor's table.
class BusModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column { time, port, device, askedBy, command, reply, taken, result, columns };

    using QAbstractTableModel::QAbstractTableModel;

    /// Adds rows at the end and takes as many off the front as are too many by then, which it
    /// returns.
    int append(const std::vector<BusRecord>& records);
    void clear();

    [[nodiscard]] const BusRecord& row(int index) const {
        return m_rows[static_cast<std::size_t>(index)];
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index,
                                int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

 private:
    std::deque<BusRecord> m_rows;
};

}  // namespace zlt
