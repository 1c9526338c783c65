/* String lists: one text whose items are joined by a separator character.
 *
 * The caller names the separator on each call. A list of keys and values is the same text with a
 * second delimiter between a key and its value. A separator 0 is in no text: the whole text is then
 * one item. Each function stands in a 16-bit form and in an 8-bit form with the suffix A. */
#ifndef NUV64_CORE_STRING_LIST_H
#define NUV64_CORE_STRING_LIST_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Adds item at the end of *list: the new text is the old text, one separator, then item. The
 * separator is written before the first item of an empty list too, so that a list built from
 * nothing begins with a separator; StringsListDeleteItem does not mirror this.
 *
 * list: the address of an owned text (KillString); null gives null. *list: null is an empty text.
 * The old text is freed. item: null is an empty item.
 * Result: the new *list; null when memory is short, *list is then as it was. */
NUV64_API char16_t* StringsListAddItem(char16_t** list, const char16_t* item,
                                       char16_t separator) NUV64_NOEXCEPT;
NUV64_API char* StringsListAddItemA(char** list, const char* item, char separator) NUV64_NOEXCEPT;

/* Deletes the first occurrence of item with a separator behind it from list, in place. It is found
 * as a piece of text: "b," is deleted from "ab,c" too. The last item has no separator behind it and
 * so can't be deleted this way.
 *
 * list: the text, changed in place; null gives false. item: null is an empty item.
 * Result: whether it was found; false when memory is short. */
NUV64_API bool StringsListDeleteItem(char16_t* list, const char16_t* item,
                                     char16_t separator) NUV64_NOEXCEPT;
NUV64_API bool StringsListDeleteItemA(char* list, const char* item, char separator) NUV64_NOEXCEPT;

/* Takes the next item off a list. The list is cut up: a terminator is written over the separator.
 *
 * item: takes the item, which lies in the list's own memory. cursor: holds the place to read at and
 * takes the place behind the separator, or that of the terminator at the end. A null address gives
 * null, and so does a null *cursor, with *item null. groomFlags: how the item is groomed in place,
 * as in StringGroom.
 * Result: the groomed item. At the end of the list this is an empty text, again and again. */
NUV64_API char16_t* StringsListParseItem(char16_t** item, char16_t** cursor, char16_t separator,
                                         uint32_t groomFlags) NUV64_NOEXCEPT;
NUV64_API char* StringsListParseItemA(char** item, char** cursor, char separator,
                                      uint32_t groomFlags) NUV64_NOEXCEPT;

/* The place of item in list, counted from 1. The items of the list are groomed before they are
 * compared, item itself is not. list stays whole. An empty or null item is found at the first empty
 * item; in a list without empty ones that is the number of items plus one.
 *
 * list: null is an empty list. ignoreCase: not 0 ignores the case of letters. groomFlags: as in
 * StringGroom.
 * Result: the place, or 0 when the item is not there or memory is short. */
NUV64_API uint64_t StringsListFindItem(const char16_t* item, const char16_t* list,
                                       char16_t separator, uint32_t ignoreCase,
                                       uint32_t groomFlags) NUV64_NOEXCEPT;
NUV64_API uint64_t StringsListFindItemA(const char* item, const char* list, char separator,
                                        uint32_t ignoreCase, uint32_t groomFlags) NUV64_NOEXCEPT;

/* Appends the item of list with the given key to *dest: the text from the key through the next
 * separator, that included, or through the end of list. The key counts where it stands at the very
 * start of list or right behind a separator, and where delimiter follows it at once.
 *
 * dest: the address of an owned text; null gives null. *dest: null is created. key, list: null
 * finds nothing. list is not changed. Result: *dest, also when the key is not there or memory is
 * short (then unchanged). */
NUV64_API char16_t* AppendItemFromList(char16_t** dest, const char16_t* key, char16_t* list,
                                       char16_t delimiter, char16_t separator) NUV64_NOEXCEPT;
NUV64_API char* AppendItemFromListA(char** dest, const char* key, char* list, char delimiter,
                                    char separator) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
