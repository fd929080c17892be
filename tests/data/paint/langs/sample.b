implement Hello;

# Says hello to each name; it doesn't sort them.
include "sys.m";
	sys: Sys;
include "draw.m";

Hello: module
{
	init: fn(ctxt: ref Draw->Context, argv: list of string);
};

init(nil: ref Draw->Context, argv: list of string)
{
	sys = load Sys Sys->PATH;
	argv = tl argv;
	# the program's own name isn't greeted
	for(; argv != nil; argv = tl argv) {
		name := hd argv;
		if(len name > 0)
			sys->print("hello, %s\n", name);
	}
	c := 'x';
	sys->print(`done %c`, c);
	exit;
}
