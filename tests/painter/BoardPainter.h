#pragma once

#include "PainterFixture.h"

/// A host that records when its hooks are called and draws one red square around the board point (10, 20).
class BoardPainter : public CKPainter
{
public:
    BoardPainter()
    {
        Init(nullptr);
        SetPixcelPerMM(4.0);
    }

    void DrawBody(CWnd*, CDC* dc) override
    {
        calls += "body ";
        if (throwInBody)
            AfxThrowInvalidArgException();
        EXPECT_EQ(dc->GetGraphicsMode(), GM_ADVANCED);
        dc->GetWorldTransform(bodyTransform);
        DrawRectangle(dc, 0x0000FF, 10, 20, squareSize, squareSize, 1);
    }
    void DrawEnding(CWnd*, CDC* dc) override
    {
        calls += "ending ";
        EXPECT_EQ(dc->GetGraphicsMode(), GM_COMPATIBLE);
        EXPECT_EQ(IsFinishDraw(), 0);
    }
    int IsExistData(CWnd*) override
    {
        calls += "data ";
        return hasData;
    }
    KRectangleD GetTargetSize() override { return target; }

    std::string TakeCalls() { return std::move(calls); }

    int hasData = 1;
    bool throwInBody = false;
    double squareSize = 10.0;
    KRectangleD target = {100, 50, 10, 20};
    XFORM bodyTransform = {};

private:
    std::string calls;
};

/// That host with a window of its own.
struct BoardWindow
{
    BoardWindow(int width, int height) : window(width, height), dc(&window) {}

    TestWindow window;
    CClientDC dc;
    BoardPainter painter;
};
