#pragma once

#include <QObject>

#include <map>
#include <vector>

class ltmmPlay;

/// When each picture of a player was painted first, in seconds of the wall.
class Painted : public QObject {
public:
    explicit Painted(ltmmPlay& player);
    bool eventFilter(QObject* object, QEvent* event) override;

    int Count() const { return int(times_.size()); }
    bool Has(int number) const { return times_.contains(number); }
    double TimeOf(int number) const { return times_.at(number); }
    /// The pictures between the first and the last painted that were painted later than a picture's time
    /// after they were due, or never, while the video played pictures a second.
    std::vector<int> Late(double pictures) const;

    /// Seconds of the wall now.
    static double Now();

private:
    ltmmPlay& player_;
    std::map<int, double> times_;
};
