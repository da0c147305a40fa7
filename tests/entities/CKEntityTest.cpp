#include "entities/CKEntity.h"

#include <gtest/gtest.h>

TEST(CKEntity, PickingTakesColoursAndPickersApart)
{
    CKEntity entity;
    EXPECT_EQ(entity.GetColor(), 0x00FFFFFFu);
    EXPECT_EQ(entity.GetPickedColor(), 0x000000FFu);
    EXPECT_EQ(entity.IsPicked() || entity.IsHidden() || entity.GetPicker(), 0);
    entity.Picked(0x00FF00ul);
    EXPECT_EQ(entity.IsPicked(), 1);
    EXPECT_EQ(entity.GetPickedColor(), 0x00FF00u);
    EXPECT_EQ(entity.GetPicker(), 0);
    entity.Unpicked();
    EXPECT_EQ(entity.IsPicked(), 0);
    EXPECT_EQ(entity.GetPickedColor(), 0x000000FFu) << "red again, not what it was picked with";

    const COLORREF blue = 0x00FF0000;
    entity.Picked(blue);
    EXPECT_EQ(entity.GetPickedColor(), blue);
    entity.Picked(5);
    EXPECT_EQ(entity.GetPicker(), 5);
    EXPECT_EQ(entity.GetPickedColor(), blue);
    entity.Unpicked();
    EXPECT_EQ(entity.GetPicker(), 5);
    entity.Picked();
    EXPECT_EQ(entity.IsPicked(), 1);
}

TEST(CKEntity, CopyAndAssignmentDifferInTheAreaOnly)
{
    CKEntity source;
    source.SetColor(0x123456);
    source.SetHidden(true);
    source.Picked(3);
    const CKEntity copy(source);
    CKEntity assigned;
    assigned = source;
    for (CKEntity entity : {copy, assigned}) {
        EXPECT_EQ(entity.GetObjectNumber(), source.GetObjectNumber());
        EXPECT_EQ(entity.GetColor(), 0x123456u);
        EXPECT_EQ(entity.IsHidden(), 1);
        EXPECT_EQ(entity.IsPicked(), 1);
        EXPECT_EQ(entity.GetPicker(), 3);
    }
    EXPECT_EQ(CKEntity(copy).GetRectangleArea().IsInitialized(), 0);
    EXPECT_EQ(assigned.GetRectangleArea().IsInitialized(), 1) << "assigning edges sets them";
}

TEST(CKEntity, LendsItsArea)
{
    CKEntity entity;
    entity.SetRectangleArea(5, 2, 1, 7);
    EXPECT_EQ(entity.GetDrawRectD() == CRectD(5, 7, 3, 6), 1);
    entity.GetRectangleAreaReference()->SetLeft(-1);
    EXPECT_EQ(entity.GetRectangleArea().GetLeft(), -1);
    CKEntity::SetAlphaVersionDFM(0);
    EXPECT_EQ(CKEntity::IsAlphaVersionDFM(), 1) << "cannot be switched off";
}
