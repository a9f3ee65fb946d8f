// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>
#include <QStandardItemModel>
#include <QTreeView>

/// The least that a window with the results table can cost: 55 rows of nine texts, no rules, no files.
/// Ends after its first paint; bench/measure.py compares the program's start with it.
namespace {

class BareView final : public QTreeView
{
protected:
    void paintEvent(QPaintEvent* event) override
    {
        QTreeView::paintEvent(event);
        QMetaObject::invokeMethod(qApp, &QApplication::quit, Qt::QueuedConnection);
    }
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QStandardItemModel model(55, 9);
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            model.setItem(row, column, new QStandardItem("00:31:17"));
    BareView view;
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true);
    view.setModel(&model);
    view.resize(900, 700);
    view.show();
    return QApplication::exec();
}
