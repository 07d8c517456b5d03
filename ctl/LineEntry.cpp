#include "ctl/LineEntry.h"

#include <cstdio>
#include <utility>

#ifdef ZLT_LIBEDIT
#include <histedit.h>
#include <unistd.h>

#include <cwchar>
#endif

namespace zlt::ctl {

#ifdef ZLT_LIBEDIT

namespace {

constexpr int linesKept = 500;

}  // namespace

struct LineEntry::Editor {
    explicit Editor(const std::function<bool()>& wait)
        : waitForKey(wait),
          edit(el_init("zltctl", stdin, stdout, stderr)),
          history(history_init()) {
        ::history(history, &event, H_SETSIZE, linesKept);
        ::history(history, &event, H_SETUNIQUE, 1);
        el_set(edit, EL_CLIENTDATA, this);
        el_set(edit, EL_PROMPT, &Editor::promptOf);
        el_set(edit, EL_EDITOR, "emacs");
        el_set(edit, EL_HIST, ::history, history);
        el_set(edit, EL_GETCFN, &Editor::readCharacter);
    }
    ~Editor() {
        el_end(edit);
        history_end(history);
    }
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    static Editor& of(EditLine* edit) {
        void* self = nullptr;
        el_get(edit, EL_CLIENTDATA, &self);
        return *static_cast<Editor*>(self);
    }
    static char* promptOf(EditLine* edit) { return of(edit).prompt.data(); }

    /// One character of UTF-8. Its own reading would go on through a signal.
    static int readCharacter(EditLine* edit, wchar_t* character) {
        std::mbstate_t state{};
        for (;;) {
            char byte = 0;
            if (!of(edit).waitForKey() || ::read(STDIN_FILENO, &byte, 1) != 1)
                return 0;
            const std::size_t length = std::mbrtowc(character, &byte, 1, &state);
            if (length <= 1)
                return 1;
            if (length == static_cast<std::size_t>(-1))
                state = {};
        }
    }

    const std::function<bool()>& waitForKey;
    EditLine* edit;
    History* history;
    HistEvent event{};
    std::string prompt;
};

LineEntry::LineEntry(std::function<bool()> waitForKey,
                     std::function<std::optional<std::string>()> readPlain)
    : m_waitForKey(std::move(waitForKey)),
      m_readPlain(std::move(readPlain)),
      m_editor(std::make_unique<Editor>(m_waitForKey)) {}

std::optional<std::string> LineEntry::read(const std::string& prompt) {
    m_editor->prompt = prompt;
    int count = 0;
    const char* typed = el_gets(m_editor->edit, &count);
    if (!typed || count <= 0) {
        std::fputs("\n", stdout);
        std::fflush(stdout);
        return std::nullopt;
    }
    std::string line(typed);
    while (line.ends_with('\n') || line.ends_with('\r'))
        line.pop_back();
    if (!line.empty())
        ::history(m_editor->history, &m_editor->event, H_ENTER, line.c_str());
    return line;
}

#else

struct LineEntry::Editor {};

LineEntry::LineEntry(std::function<bool()> waitForKey,
                     std::function<std::optional<std::string>()> readPlain)
    : m_waitForKey(std::move(waitForKey)), m_readPlain(std::move(readPlain)) {}

std::optional<std::string> LineEntry::read(const std::string& prompt) {
    std::fputs(prompt.c_str(), stdout);
    std::fflush(stdout);
    return m_readPlain();
}

#endif

LineEntry::~LineEntry() = default;

}  // namespace zlt::ctl
