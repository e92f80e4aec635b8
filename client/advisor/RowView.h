#pragma once

#include "RowModel.h"

#include <QTreeView>

/// A table of rows. The skin sets the colours of the marks.
class RowView : public QTreeView {
    Q_OBJECT
    Q_PROPERTY(QColor shadedColor READ shadedColor WRITE setShadedColor)
    Q_PROPERTY(QColor faintColor READ faintColor WRITE setFaintColor)
    Q_PROPERTY(QColor goodColor READ goodColor WRITE setGoodColor)
    Q_PROPERTY(QColor badColor READ badColor WRITE setBadColor)
    Q_PROPERTY(QColor doubtfulColor READ doubtfulColor WRITE setDoubtfulColor)

public:
    using Mark = AdvisorRow::Mark;

    /// The headings of the columns are for screen readers only unless `showsHeadings`. A view that `fitsRows` is no
    /// higher than its rows.
    enum Option { Plain = 0, ShowsHeadings = 1, FitsRows = 2 };
    RowView(const QString& name, const AdvisorColumns& columns, int options, QWidget* parent);

    void setRows(const AdvisorRows& rows);
    void setRows(int count, const std::function<AdvisorRow(int row)>& make) { m_model->setRows(count, make); }
    const AdvisorRows& rows() const { return m_model->rows(); }

    QColor shadedColor() const { return m_model->color(Mark::Shaded); }
    QColor faintColor() const { return m_model->color(Mark::Faint); }
    QColor goodColor() const { return m_model->color(Mark::Good); }
    QColor badColor() const { return m_model->color(Mark::Bad); }
    QColor doubtfulColor() const { return m_model->color(Mark::Doubtful); }
    void setShadedColor(const QColor& color) { m_model->setColor(Mark::Shaded, color); }
    void setFaintColor(const QColor& color) { m_model->setColor(Mark::Faint, color); }
    void setGoodColor(const QColor& color) { m_model->setColor(Mark::Good, color); }
    void setBadColor(const QColor& color) { m_model->setColor(Mark::Bad, color); }
    void setDoubtfulColor(const QColor& color) { m_model->setColor(Mark::Doubtful, color); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Emitted when a row is clicked, or Enter is pressed on it.
    void rowChosen(const AdvisorRow& row);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void choose(const QModelIndex& index);
    int heightOf(int rows) const;

    RowModel* m_model;
    const bool m_fitsRows;
};
