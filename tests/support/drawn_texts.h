// A device that only remembers where it is told to draw which words.
#pragma once

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <vector>

namespace kelvar::test {

struct DrawnText {
    QString text;
    QRectF place;
};

class DrawnTexts : public QImage, private QPaintEngine {
public:
    explicit DrawnTexts(QSize size) : QImage(size, Format_RGB32), QPaintEngine(AllFeatures) {}

    std::vector<DrawnText> texts;

    QPaintEngine* paintEngine() const override { return const_cast<DrawnTexts*>(this); }

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    QPaintEngine::Type type() const override { return User; }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        const QRectF place(at.x(), at.y() - item.ascent(), item.width(),
                           item.ascent() + item.descent());
        texts.push_back({item.text(), painter()->combinedTransform().mapRect(place)});
    }
};

}  // namespace kelvar::test
