// A device that takes the words of its pages, where they stand, and what is coloured, instead of
// drawing them.
#pragma once

#include <QBuffer>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace kelvar::test {

struct UnwrittenFile {
    QBuffer unwritten;
};

class PageWords : private UnwrittenFile, public QPdfWriter {
public:
    struct Mark {
        enum Kind { words, area, in_chart } kind;
        QPointF place;  // millimetres from the margins; of words the left end of their base line
        QString text;   // of an area its colour
    };

    PageWords() : QPdfWriter(&unwritten) {}

    std::vector<std::vector<Mark>> pages;
    // To be set while a chart is drawn; of that, only words are taken.
    bool in_chart = false;

    bool newPage() override {
        pages.emplace_back();
        return true;
    }

protected:
    QPaintEngine* paintEngine() const override { return &taker_; }

private:
    class Taker : public QPaintEngine {
    public:
        explicit Taker(PageWords& device) : QPaintEngine(AllFeatures), device_(device) {}
        bool begin(QPaintDevice*) override { return device_.newPage(); }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawRects(const QRectF* areas, int count) override {
            for (int i = 0; i < count && !device_.in_chart; ++i) {
                put(Mark::area, areas[i].topLeft(), painter()->brush().color().name());
            }
        }
        void drawTextItem(const QPointF& place, const QTextItem& item) override {
            put(device_.in_chart ? Mark::in_chart : Mark::words, place, item.text());
        }
        Type type() const override { return User; }

    private:
        void put(Mark::Kind kind, const QPointF& place, const QString& text) {
            const QPointF inches = painter()->combinedTransform().map(place) / device_.resolution();
            device_.pages.back().push_back({kind, inches * 25.4, text});
        }

        PageWords& device_;
    };
    mutable Taker taker_{*this};
};

// A line for all that stands at one height: "64: 0 Annual fee | 86 $80". Places are so coarse that they
// stay where a letter's width changes. "0 #e3ebf2 x 7": seven areas, the first at 0. Words of a chart
// come last, without their places.
inline QString page_text(const std::vector<PageWords::Mark>& page) {
    using Mark = PageWords::Mark;
    const auto coarse = [](double millimetres) {
        return 2 * static_cast<int>(std::lround(millimetres / 2));
    };
    std::map<int, std::multimap<int, QString>> lines, chart;
    std::map<std::pair<int, QString>, std::vector<int>> areas;
    for (const Mark& mark : page) {
        const int y = coarse(mark.place.y()), x = coarse(mark.place.x());
        if (mark.kind == Mark::area) {
            areas[{y, mark.text}].push_back(x);
        } else if (const QString words = mark.text.simplified(); !words.isEmpty()) {
            (mark.kind == Mark::words ? lines : chart)[y].emplace(x, words);
        }
    }
    for (const auto& [key, places] : areas) {
        lines[key.first].emplace(*std::min_element(places.begin(), places.end()),
                                 QStringLiteral("%1 x %2").arg(key.second).arg(places.size()));
    }
    QStringList text;
    for (const auto& [y, marks] : lines) {
        QStringList line;
        for (const auto& [x, words] : marks) {
            line << QStringLiteral("%1 %2").arg(x).arg(words);
        }
        text << QStringLiteral("%1: %2").arg(y, 3).arg(line.join(QStringLiteral(" | ")));
    }
    for (const auto& [y, marks] : chart) {
        QStringList line;
        for (const auto& [x, words] : marks) {
            line << words;
        }
        text << QStringLiteral("chart: ") + line.join(QStringLiteral(" | "));
    }
    return text.join(u'\n');
}

}  // namespace kelvar::test
