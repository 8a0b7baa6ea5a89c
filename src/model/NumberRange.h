#pragma once

namespace strativo {

/// A range of the numbers from first to last that pass a test, in ascending order. The bounds are
/// fixed at the start; each number is tested when the loop reaches it.
template <class Test>
class NumberRange {
public:
    class Iterator {
    public:
        Iterator(const NumberRange& owner, int start) : range(owner), number(start) { Skip(); }
        int operator*() const { return number; }
        Iterator& operator++() {
            ++number;
            Skip();
            return *this;
        }
        bool operator!=(const Iterator& other) const { return number != other.number; }

    private:
        void Skip() {
            while (number <= range.last && !range.test(number))
                ++number;
        }

        const NumberRange& range;
        int number;
    };

    NumberRange(int firstNumber, int lastNumber, Test isIn)
        : first(firstNumber), last(lastNumber), test(isIn) {}

    Iterator begin() const { return {*this, first}; }
    Iterator end() const { return {*this, last + 1}; }

private:
    int first;
    int last;
    Test test;
};

} // namespace strativo
