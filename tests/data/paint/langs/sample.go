// Package greet says hello; it doesn't know any other language.
package greet

import (
	"fmt"
	"strings"
)

/* Greeter keeps the names it has seen. */
type Greeter struct {
	seen map[string]int
}

func New() *Greeter {
	return &Greeter{seen: make(map[string]int)}
}

func (g *Greeter) Hello(name string) (string, error) {
	if strings.TrimSpace(name) == "" {
		return "", fmt.Errorf("empty name")
	}
	g.seen[name]++
	sep := ','
	return fmt.Sprintf(`Hello, %s%c seen %d times`, name, sep, g.seen[name]), nil
}
