#pragma once

#include <QString>
#include <QStringList>

#include "presentation/chart_data.h"

// Texts on a chart's axes.

namespace tessara {

// Titles and labels of a chart are read as HTML.
QString Plain(const QString& text);

// An axis takes each category once. What nobody sees tells equal texts apart: the category's number, in joiners.
QString Distinct(const QString& text, qsizetype number);
QString WithoutMark(QString text);

// The label of a row in lines: the category and its percent; an interval's ends, with the "to" on a line of its own
// where the room is smallest.
QStringList Folded(const Chart& chart, qsizetype row, bool narrow);

}  // namespace tessara
