#pragma once

#include "KolmApi.h"

#include "foundation/CKObject.h"
#include "foundation/CKRectD.h"

#include <afx.h>

/// What every element of a board shows to the user: a colour, a picked state with a colour and a picker of its own, a
/// hidden flag and an area. Colours are COLORREF values, red in the low byte; of a wider number the low 32 bits count.
///
/// A new entity is white, not picked (picked colour red), visible, with an area that holds nothing and picker 0. Copies
/// carry everything, the object number included. Entities are not synchronised and never archive these fields.
/// The virtual operations are the destructor and Unpicked.
class KOLM_API CKEntity : public CKObject
{
public:
    CKEntity() = default;
    /// Copies every field; the area keeps its initialized flag.
    CKEntity(const CKEntity& other) = default;
    ~CKEntity() override = default;

    /// Copies every field, the object number included. The area counts as set afterwards, also from an empty one.
    CKEntity& operator=(const CKEntity& other) = default;

    /// Takes the picked state back and makes the picked colour red again; the picker stays.
    virtual void Unpicked();

    /// Marks as picked; colour and picker stay.
    void Picked() { m_picked = true; }
    /// Marks as picked, shown in this colour.
    void Picked(unsigned long color)
    {
        m_picked = true;
        SetPickedColor(color);
    }
    /// The same for a COLORREF variable where that type is an unsigned int.
    void Picked(unsigned int color) { Picked(static_cast<unsigned long>(color)); }
    /// Marks as picked by the given picker; the picked colour stays. A colour written as a plain literal is an int and
    /// lands here: write it with a suffix (0x00FF00ul) or as a COLORREF.
    void Picked(int picker)
    {
        m_picked = true;
        SetPicker(picker);
    }

    /// @{
    /// Picked state, 1 or 0, colours and picker as they are. Setting a colour or the picker changes no picked state.
    int IsPicked() { return m_picked ? 1 : 0; }
    void SetPickedColor(unsigned long color) { m_pickedColor = static_cast<COLORREF>(color); }
    COLORREF GetPickedColor() { return m_pickedColor; }
    void SetPicker(int picker) { m_area.picker = picker; }
    int GetPicker() { return m_area.picker; }
    void SetColor(unsigned long color) { m_color = static_cast<COLORREF>(color); }
    COLORREF GetColor() const { return m_color; }
    COLORREF GetColor() { return m_color; }
    /// @}
    /// @{
    /// A hidden entity, 1, is not drawn by the painter.
    void SetHidden(bool hidden) { m_hidden = hidden; }
    int IsHidden() { return m_hidden ? 1 : 0; }
    /// @}

    /// Sets the edges of the area, in logical millimetres, and marks it initialized.
    void SetRectangleArea(double left, double right, double bottom, double top)
    {
        m_area.Set(left, right, bottom, top);
    }
    /// A copy of the area with its flag.
    CKRectD GetRectangleArea() { return m_area; }
    /// The area itself; the pointer is valid as long as the entity and is not to be deleted.
    CKRectD* GetRectangleAreaReference() { return &m_area; }
    /// The area as its top-left corner and its size.
    CRectD GetDrawRectD();

    /// @{
    /// Switches of the surrounding system that are fixed here: always 1, and setting them does nothing.
    static int IsAlphaVersionDFM();
    static int IsVersion6Debug();
    static void SetAlphaVersionDFM(int on);
    static void SetVersion6Debug(int on);
    /// @}

private:
    static constexpr COLORREF kPickedRed = 0x000000FF;
    static constexpr COLORREF kWhite = 0x00FFFFFF;

    /// The area and, in the last bytes that it leaves free, the picker: apart, each would be filled up by four bytes,
    /// in every shape of a board.
    struct AreaAndPicker : CKRectD
    {
        int picker = 0;
    };

    bool m_picked = false;
    bool m_hidden = false;
    COLORREF m_pickedColor = kPickedRed;
    COLORREF m_color = kWhite;
    AreaAndPicker m_area;
};
