#include "ui/lists/RowListModel.h"

#include <QSignalSpy>
#include <gtest/gtest.h>
#include <string>

namespace brisklog::test {
namespace {

struct Letter {
    char name;
    int size = 0;

    [[nodiscard]] char identity() const { return name; }
};

class Letters final : public RowListModel<Letter> {
public:
    void take(const std::string& names, int size = 0) {
        std::vector<Letter> rows;
        for (const char name : names)
            rows.push_back({name, size});
        takeRows(std::move(rows));
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int /*role*/) const override {
        return QString(QChar::fromLatin1(rowAt(index).name));
    }

    [[nodiscard]] std::string names() const {
        std::string names;
        for (int row = 0; row < rowCount(); ++row)
            names += rowAt(index(row)).name;
        return names;
    }
};

class RowListModelTest : public testing::Test {
protected:
    /// Replaces one list with the next and returns what a view would be told: "+1-2" for rows inserted,
    /// "-0-0" for rows removed, "!" for a reset.
    std::string heard(const std::string& before, const std::string& now) {
        Letters model;
        model.take(before);
        std::string heard;
        const auto range = [](int first, int last) {
            return std::to_string(first) + "-" + std::to_string(last);
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted,
                         [&](const QModelIndex&, int first, int last) { heard += "+" + range(first, last); });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved,
                         [&](const QModelIndex&, int first, int last) { heard += "-" + range(first, last); });
        QObject::connect(&model, &QAbstractItemModel::modelReset, [&] { heard += "!"; });
        model.take(now);
        EXPECT_EQ(model.names(), now);
        return heard;
    }
};

TEST_F(RowListModelTest, tellsWhatCame) {
    EXPECT_EQ(heard("", "ab"), "+0-1");
    EXPECT_EQ(heard("ab", "abc"), "+2-2");
    EXPECT_EQ(heard("ad", "abcd"), "+1-2");
    EXPECT_EQ(heard("b", "ab"), "+0-0");
}

TEST_F(RowListModelTest, tellsWhatWent) {
    EXPECT_EQ(heard("ab", ""), "-0-1");
    EXPECT_EQ(heard("abcd", "ad"), "-1-2");
    EXPECT_EQ(heard("abc", "ab"), "-2-2");
}

TEST_F(RowListModelTest, tellsNothingOfRowsThatStayed) {
    EXPECT_EQ(heard("", ""), "");
    EXPECT_EQ(heard("abc", "abc"), "");
}

TEST_F(RowListModelTest, isReadAnewWhereRowsCameAndWent) {
    EXPECT_EQ(heard("abc", "axc"), "!");
    EXPECT_EQ(heard("ab", "ba"), "!");
    EXPECT_EQ(heard("abc", "xyzw"), "!");
}

TEST_F(RowListModelTest, doesNotLoseItselfAmongEqualRows) {
    EXPECT_EQ(heard("aa", "aaa"), "+2-2");
    EXPECT_EQ(heard("aaa", "aa"), "-2-2");
}

TEST_F(RowListModelTest, takesNewContentsOfRowsThatStayed) {
    Letters model;
    model.take("ab", 1);
    const QPersistentModelIndex second(model.index(1));
    int layouts = 0;
    QObject::connect(&model, &QAbstractItemModel::layoutChanged, [&] { ++layouts; });
    model.take("ab", 2);
    EXPECT_EQ(model.rowAt(second).size, 2);
    EXPECT_EQ(layouts, 1);
    model.take("b", 2);
    EXPECT_EQ(second.row(), 0);
}

} // namespace
} // namespace brisklog::test
