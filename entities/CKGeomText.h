#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

#include <utility>

/// A text at a point, type code 1: a narrow string, a position in logical millimetres, an angle in degrees (kept, not
/// drawn) and a font size in device pixels, the same at every zoom.
///
/// The virtual operations are those of CKGeom, then the two-argument Draw.
class KOLM_API CKGeomText : public CKGeom
{
public:
    /// Position in millimetres, angle in degrees, font size in device pixels.
    CKGeomText(CString text = "", double x = 0, double y = 0, float angle = 0, int fontSize = 20);
    /// @{
    /// Copying and comparing follow CKGeom, with text, position, angle and font size on top.
    CKGeomText(const CKGeomText& other) = default;
    CKGeomText& operator=(const CKGeomText& other) = default;
    /// @}
    /// Texts compare byte by byte, so that case counts.
    int operator==(const CKGeomText& other) const;
    /// The negation of ==.
    int operator!=(const CKGeomText& other) const;

    /// The geometry header, then version, the string in the platform's encoding (length prefix and one byte a
    /// character, no terminator), x, y and the angle as a float. The font size is not archived and stays. The text is
    /// replaced only once its string was read whole.
    void Serialize(CArchive& ar) override;
    CKGeom* clone() const override;
    using CKGeom::Draw;
    void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color) override;
    int GetType() override;
    /// Does nothing; a place for hosts.
    virtual void Draw(CKPainter* painter, CDC* dc);

    /// @{
    /// The fields as they are; units as above.
    CString GetText() { return m_text; }
    void SetText(CString text) { m_text = std::move(text); }
    double GetX() { return m_x; }
    double GetY() { return m_y; }
    void SetX(double x) { m_x = x; }
    void SetY(double y) { m_y = y; }
    void SetXY(double x, double y)
    {
        m_x = x;
        m_y = y;
    }
    float GetAngle() { return m_angle; }
    void SetAngle(float angle) { m_angle = angle; }
    int GetFontSize() { return m_fontSize; }
    void SetFontSize(int fontSize) { m_fontSize = fontSize; }
    /// @}

private:
    CString m_text;
    double m_x;
    double m_y;
    float m_angle;
    int m_fontSize;
};
