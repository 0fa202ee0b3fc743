#include "shell/notes/note_screens.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include "shell/notes/duration_table.h"
#include "widgets/focus_marker.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const QString how_to_read =
    u"From the portion of the table colored yellow, determine the rate of your current account balance that you will withdraw every year. Then, from the portion of the table colored red, estimate the average annual total return on your funds. Where your selections intersect on the blue colored portion of the table, you will find the approximate length of your distribution payments."_s;

}  // namespace

frmvang1::frmvang1(Module1& module1)
    : Screen(module1, ScreenId::frmvang1, "frmvang1",
             {.title = u"How to make your distribution payments last longer"_s, .step = {}}) {
    QLabel* instructions = add_paragraphs({{{}, how_to_read}});
    QWidget* table = build_table();
    keep_in_view_with(table, instructions);
    set_first_field(table);
    auto* pichart = control::picture(u"chart"_s, u"Life expectancy table"_s, "pichart");
    connect(pichart, &QToolButton::clicked, this, [this] { go_next(); });
    navigation()->add_left(pichart);
    content()->addStretch(1);
}

QWidget* frmvang1::build_table() {
    auto* table = new QTableView;
    table->setObjectName(u"grdduration"_s);
    table->setAccessibleName(u"Years that payments last"_s);
    auto* model = new DurationTable(table);
    table->setModel(model);
    table->setTabKeyNavigation(false);
    QPalette marked = table->palette();  // the cells are blue themselves
    marked.setColor(QPalette::Highlight, theme::colors().text);
    marked.setColor(QPalette::HighlightedText, theme::colors().window);
    table->setPalette(marked);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + theme::grid);
    table->ensurePolished();
    table->setFixedHeight(model->rowCount() * table->verticalHeader()->defaultSectionSize() +
                          2 * table->frameWidth());
    auto* lblcell = theme::label({}, theme::Role::value, "lblcell");
    lblcell->setAlignment(Qt::AlignCenter);
    lblcell->setWordWrap(true);
    connect(table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [lblcell, model](const QModelIndex& cell) { lblcell->setText(model->sentence(cell)); });
    content()->addWidget(table);
    content()->addWidget(lblcell);
    table->setCurrentIndex(model->index(1, 1));
    return table;
}

void frmvang1::go_next() {
    module.screens.show(ScreenId::frmlife);
}

}  // namespace kelvar
