# Builds the demo; don't edit the generated deps by hand.
CC ?= cc
CFLAGS := -O2 -Wall
SRC := $(wildcard src/*.c)
OBJ := $(patsubst src/%.c,build/%.o,$(SRC))

.PHONY: all clean

all: demo

demo: $(OBJ)
	$(CC) $(LDFLAGS) -o $@ $^ $(LDLIBS)

build/%.o: src/%.c
	@mkdir -p build
	$(CC) $(CFLAGS) -c -o $@ $<

ifeq ($(DEBUG),1)
CFLAGS += -g
endif

clean:
	$(RM) -r build demo
	@echo "cleaned ${CURDIR}"
