/* Menus on the console: a table of rows, one key each. */
#ifndef NUV64_CORE_CONSOLE_MENU_H
#define NUV64_CORE_CONSOLE_MENU_H

#include "nuv64/core/types.h"

/* What a row does. word: the word of its row; context: what ConMenu was given; offset: the index of
 * the row in the menu. The result is a status. */
typedef uint32_t (*ConMenuHandler)(uint32_t word, void* context, uint32_t offset);

/* A row of a menu. Row 0 is the title: its handler is null and its word holds the flags that the
 * menu is meant to be shown with. In the others the first character of the text is the key and the
 * rest describes it. A row with a null text ends the menu. */
typedef struct ConMenuRow {
    const char16_t* text;
    ConMenuHandler handler;
    uint32_t word;
} ConMenuRow;

/* The same with 8-bit text; keys are ASCII. */
typedef struct ConMenuRowA {
    const char* text;
    ConMenuHandler handler;
    uint32_t word;
} ConMenuRowA;

/* Flags of ConMenu. */
#define NUV64_MENU_ONCE 4u         /* return after one command instead of showing the menu again */
#define NUV64_MENU_CLEAR_BEFORE 8u /* clear the console before the menu is shown */
#define NUV64_MENU_CLEAR_RUN 16u   /* clear the console before the handler runs */
#define NUV64_MENU_NO_WAIT 32u     /* behind the handler a line feed instead of a wait for a key */

NUV64_BEGIN_DECLS

/* The index of the first row, the title included, whose text begins with key; 0xFFFFFFFF when none
 * does, and for a null menu. */
NUV64_API uint32_t ConFindMenuItem(char16_t key, const ConMenuRow* menu) NUV64_NOEXCEPT;
NUV64_API uint32_t ConFindMenuItemA(char key, const ConMenuRowA* menu) NUV64_NOEXCEPT;

/* Shows a menu, waits for a key and calls the handler of its row, over and over.
 *
 * A status of the handler that is not 0 is shown as CoutError shows it. A key that no row has ends
 * the menu: one above 32 with " other", others (blank, control keys, the end of the input) with a
 * beep. A key whose row has no handler, as the tab or line feed that titles start with, does
 * nothing: another one is asked for. context is handed to the handlers and may be null.
 * Status 0, also for a null menu; 47 when a handler throws; 0x80001. */
NUV64_API uint32_t ConMenu(const ConMenuRow* menu, uint32_t flags, void* context) NUV64_NOEXCEPT;
NUV64_API uint32_t ConMenuA(const ConMenuRowA* menu, uint32_t flags, void* context) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
