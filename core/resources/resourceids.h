// The numbers of the base library's resources, shared by its resource
// scripts and by the code that loads them. Plain definitions, as the
// resource compiler reads this file too.
//
// A text's number is its British English one; each other language adds its
// offset, which vSTRING::LanguageOffset gives for a language number.
#pragma once

#define OFFSET_ENGLISH_UK 0
#define OFFSET_ENGLISH_US 1000
#define OFFSET_GERMAN 2000
#define OFFSET_FRENCH 3000
#define OFFSET_SWEDISH 4000

// The Window menu the application adds to its frame, and the Help menu's title.
#define TXT_HELPMENU 31019
#define TXT_WINDOWMENU 31020
#define TXT_CASCADE 31021
#define TXT_TILE 31022
#define TXT_ROWS 31023
#define TXT_COLUMNS 31024
#define TXT_NEWWINDOW 31025

// The box that warns of low memory.
#define TXT_LOWMEMORYCAPTION 31100
#define TXT_LOWMEMORYTEXT 31101

// The captions of the file dialog.
#define TXT_SAVEAS 31105
#define TXT_OPEN 31106

// The standard dialog's buttons.
#define TXT_CANCEL 31127
#define TXT_OK 31128
#define TXT_HELP 31131

// The clipboard format of dropped file lists: the same in every language.
#define TXT_DROPFORMAT 31200

// The pointer forms of a drag: over a window that takes a drop, and elsewhere.
#define CUR_DROPALLOWED 32500
#define CUR_NODROP 32505

// The picture sheets: drive and folder pictures on blue, and the check box,
// radio and stepping-arrow marks. scripts/draw-bitmaps.py draws them.
#define BMP_DRIVES 32000
#define BMP_MARKS 32001
