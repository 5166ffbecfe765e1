#include "tools/editing_keys.h"

#include <cstdio>
// Readline needs FILE to be declared before.
#include <readline/readline.h>

namespace Quarn {
namespace {

int Ignore(int, int) { return 0; }

struct Binding {
  const char* keys;
  rl_command_func_t* function;
};

// As terminals of the xterm and the Linux families send them; some depend on the keypad's mode.
constexpr Binding kBindings[] = {
    {"\\e[A",    rl_history_search_backward}, // up and down: lines that begin like this one
    {"\\eOA",    rl_history_search_backward},
    {"\\e[B",    rl_history_search_forward },
    {"\\eOB",    rl_history_search_forward },
    {"\\e[5~",   rl_beginning_of_history   }, // page up and down
    {"\\e[6~",   rl_end_of_history         },
    {"\\e[C",    rl_forward_char           },
    {"\\eOC",    rl_forward_char           },
    {"\\e[D",    rl_backward_char          },
    {"\\eOD",    rl_backward_char          },
    {"\\e[1;5C", rl_forward_word           }, // Ctrl and Alt with left and right
    {"\\e[1;5D", rl_backward_word          },
    {"\\e[1;3C", rl_forward_word           },
    {"\\e[1;3D", rl_backward_word          },
    {"\\e[5C",   rl_forward_word           },
    {"\\e[5D",   rl_backward_word          },
    {"\\eOc",    rl_forward_word           },
    {"\\eOd",    rl_backward_word          },
    {"\\e[H",    rl_beg_of_line            },
    {"\\eOH",    rl_beg_of_line            },
    {"\\e[1~",   rl_beg_of_line            },
    {"\\e[7~",   rl_beg_of_line            },
    {"\\e[F",    rl_end_of_line            },
    {"\\eOF",    rl_end_of_line            },
    {"\\e[4~",   rl_end_of_line            },
    {"\\e[8~",   rl_end_of_line            },
    {"\\e[2~",   rl_overwrite_mode         }, // insert
    {"\\e[3~",   rl_delete                 },
    {"\\e[3;5~", rl_kill_word              },
    {"\\e[200~", rl_bracketed_paste_begin  },
    {"\\e[",     rl_skip_csi_sequence      }, // all others, such as F5, insert nothing
    {"\\eOP",    Ignore                    }, // F1 to F4
    {"\\eOQ",    Ignore                    },
    {"\\eOR",    Ignore                    },
    {"\\eOS",    Ignore                    },
    {"\\e[[A",   Ignore                    }, // the same, and F5, on the Linux console
    {"\\e[[B",   Ignore                    },
    {"\\e[[C",   Ignore                    },
    {"\\e[[D",   Ignore                    },
    {"\\e[[E",   Ignore                    },
    {"\\eOM",    rl_newline                }, // Enter of the keypad
};

}  // namespace

void BindKeys() {
  for (const auto& [keys, function] : kBindings) {
    rl_bind_keyseq_in_map(keys, function, emacs_standard_keymap);
    rl_bind_keyseq_in_map(keys, function, vi_insertion_keymap);
    rl_bind_keyseq_in_map(keys, function, vi_movement_keymap);
  }
}

}  // namespace Quarn
