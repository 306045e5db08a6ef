// The sample desk's main window made of plain widgets, to be measured beside it: PlainDesk DATABASE
// [--once]. It reads the same table of the same file into the same lines; with --once it ends when
// the window has been shown.

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <sqlite3.h>

namespace
{

constexpr int COLUMNS = 4;
constexpr int LINES_OF_A_STEP = 400;

QString LineOf(sqlite3_stmt* row)
{
    QString line;
    for (int column = 0; column < COLUMNS; ++column)
    {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
        line += (column == 0 ? QString() : QStringLiteral("\t")) + QString::fromUtf8(text);
    }
    return line;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    sqlite3* database = nullptr;
    sqlite3_stmt* rows = nullptr;
    if (argc < 2 ||
        sqlite3_open_v2(argv[1], &database, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK ||
        sqlite3_prepare_v2(database, "SELECT * FROM Passives", -1, &rows, nullptr) != SQLITE_OK)
        return 1;

    QDialog window;
    auto* const grid = new QGridLayout(&window);
    auto* const list = new QListWidget;
    grid->addWidget(new QLabel(QStringLiteral("Table:")), 0, 0);
    grid->addWidget(new QComboBox, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Filter:")), 0, 2);
    grid->addWidget(new QLineEdit, 0, 3);
    grid->addWidget(list, 1, 0, 1, 4);
    grid->addWidget(new QPushButton(QStringLiteral("Show")), 0, 4);
    grid->addWidget(new QPushButton(QStringLiteral("Close")), 2, 4);

    QTimer idle;
    QObject::connect(&idle, &QTimer::timeout,
                     [&]
                     {
                         for (int line = 0; line < LINES_OF_A_STEP; ++line)
                         {
                             if (sqlite3_step(rows) != SQLITE_ROW)
                                 return idle.stop();
                             list->addItem(LineOf(rows));
                         }
                     });
    idle.start();
    window.show();
    if (argc > 2)
        QTimer::singleShot(0, &window, &QDialog::close);
    const int code = QApplication::exec();
    sqlite3_finalize(rows);
    sqlite3_close(database);
    return code;
}
