#include <QTableView>
#include <gtest/gtest.h>

#include "platform/qt/GridBinding.h"
#include "platform/qt/RecordsetModel.h"

namespace ornivane {
namespace {

class GridTest : public testing::Test {
protected:
    GridTest() {
        Rows.AppendField({"Name", FieldType::Text, 0, true});
        Rows.OpenDetached();
        for (const char* name : {"C", "A", "B"}) {
            Rows.AddNew();
            Rows.Set("Name", name);
            Rows.Update();
        }
        Rows.MoveFirst();
    }
    std::string Shown(int row) { return Grid.model()->index(row, 0).data().toString().toStdString(); }

    Recordset Rows;
    RecordsetModel Model{Rows, {{"Name", [] { return QString("Name"); }, {}}}};
    QTableView Grid;
    GridBinding Binding{Model, Grid};
};

TEST_F(GridTest, GridAndRecordsetStandOnTheSameRow) {
    Rows.MoveNext();
    EXPECT_EQ(Grid.currentIndex().row(), 1);
    Grid.setCurrentIndex(Model.index(2, 0));
    EXPECT_EQ(Rows.Text("Name"), "B");
    Rows.MoveNext(); // behind the last row
    EXPECT_FALSE(Grid.currentIndex().isValid());
}

TEST_F(GridTest, FollowsSortingChangesAndDeletion) {
    Rows.Sort("Name");
    EXPECT_EQ(Shown(0) + Shown(1) + Shown(2), "ABC");
    EXPECT_EQ(Grid.currentIndex().row(), 0);
    Rows.MoveLast();
    Rows.Set("Name", "Z");
    Rows.Update();
    EXPECT_EQ(Shown(2), "Z");
    Rows.Delete();
    EXPECT_EQ(Grid.model()->rowCount(), 2);
    EXPECT_FALSE(Grid.currentIndex().isValid());
    EXPECT_FALSE(Grid.model()->flags(Model.index(0, 0)) & Qt::ItemIsEditable);
    Rows.Close();
    EXPECT_EQ(Grid.model()->rowCount(), 0);
}

TEST_F(GridTest, TheCurrentRowShowsAsSelectedOnlyWhenAsked) {
    Binding.SelectRow();
    EXPECT_EQ(Grid.selectionModel()->selectedRows().size(), 1);
    Binding.ClearRowSelection();
    EXPECT_TRUE(Grid.selectionModel()->selectedRows().isEmpty());
    EXPECT_EQ(Rows.AbsolutePosition(), 1);
}

} // namespace
} // namespace ornivane
