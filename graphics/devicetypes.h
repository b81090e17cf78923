#pragma once

// The small enumerations that the device family shares.

// What kind of surface a device draws on.
enum vDEV_TYPE {
    vDEV_UNKNOWN = 0,
    vDEV_SCREEN = 1,
    vDEV_WINDOW = 2,
    vDEV_CONTEXT = 3,
    vDEV_MEMORY = 4
};

// How DisplayMode turns a colour into the one the device shows.
enum vDISPLAY_MODE {
    // The colour as it is.
    vDISPLAY_ASIS = 0,
    // The nearest colour the device can show.
    vDISPLAY_NEAREST = 1,
    // The colour darkened to a fraction of itself.
    vDISPLAY_SHADE = 2
};

// Where a line of text sits across its rectangle.
enum vTEXTALIGN {
    vTEXT_LEFT = 0,
    vTEXT_RIGHT = 1,
    vTEXT_CENTRE = 2
};

// How drawing meets what is already there: exclusive-or drawing undoes itself
// when repeated, which rubber-band feedback relies on.
enum vDRAWMODE {
    vDRAW_COPY = 0,
    vDRAW_XOR = 1
};

// The screen's colours: below 100 the platform's system colour numbers, from
// 100 the library's five colours of three-dimensional drawing, lightest first.
enum vSCREENCOLOUR {
    vSCREEN_WINDOW = 5,
    vSCREEN_WINDOWTEXT = 8,
    vSCREEN_HIGHLIGHT = 13,
    vSCREEN_HIGHLIGHTTEXT = 14,
    vSCREEN_BUTTONFACE = 15,
    vSCREEN_BUTTONSHADOW = 16,
    vSCREEN_GREYTEXT = 17,
    vSCREEN_BUTTONHIGHLIGHT = 20,
    // The lit outer edge of a raised box.
    vSCREEN_3DLIGHTHIGHLIGHT = 100,
    // The lit inner edge.
    vSCREEN_3DHIGHLIGHT = 101,
    // The face between the edges.
    vSCREEN_3DFACE = 102,
    // The shaded inner edge.
    vSCREEN_3DSHADOW = 103,
    // The shaded outer edge.
    vSCREEN_3DDARKSHADOW = 104
};

// A picture's turn in quarter turns.
enum vROTATEANGLE {
    vROTATE_NONE = 0,
    vROTATE_90 = 1,
    vROTATE_180 = 2,
    vROTATE_270 = 3
};
