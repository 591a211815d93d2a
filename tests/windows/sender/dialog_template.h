#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace foliant::sender::win32::test {

/// One control of a dialog made in memory; its place does not matter.
struct Item {
    std::wstring window_class;
    std::wstring label;
    WORD id = 0;
    DWORD style = 0;
};

/// A dialog template in memory.
class DialogTemplate {
  public:
    explicit DialogTemplate(const std::wstring& caption, const std::vector<Item>& items,
                            DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE) {
        put_head(style, static_cast<WORD>(items.size()));
        put_text(caption);
        short row = 0;
        for (const Item& item : items)
            put_item(item, row++);
    }
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    void put(DWORD number) {
        words_.push_back(LOWORD(number));
        words_.push_back(HIWORD(number));
    }
    void put_text(const std::wstring& text) {
        words_.insert(words_.end(), text.begin(), text.end());
        words_.push_back(0);
    }
    void put_place(short x, short y, short width, short height) {
        for (const short number : {x, y, width, height})
            words_.push_back(static_cast<WORD>(number));
    }
    void put_head(DWORD style, WORD items) {
        put(style);
        put(0);
        words_.push_back(items);
        put_place(10, 10, 200, 200);
        words_.push_back(0);  // no menu
        words_.push_back(0);  // the class of dialogs
    }
    void put_item(const Item& item, short row) {
        if (words_.size() % 2 != 0) words_.push_back(0);
        put(item.style | WS_CHILD | WS_VISIBLE);
        put(0);
        put_place(5, static_cast<short>(5 + row * 15), 150, 12);
        words_.push_back(item.id);
        put_text(item.window_class);
        put_text(item.label);
        words_.push_back(0);  // no data
    }

    std::vector<WORD> words_;
};

}  // namespace foliant::sender::win32::test
