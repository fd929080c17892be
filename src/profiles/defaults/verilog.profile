name: Verilog Default Profile
case-sensitive: yes
code-order: yes

[keywords 1] keywords
module
endmodule
macromodule
input
output
inout
wire
reg
tri
wand
wor
supply0
supply1
parameter
localparam
defparam
assign
always
initial
begin
end
fork
join
if
else
case
casex
casez
endcase
default
for
while
repeat
forever
function
endfunction
task
endtask
generate
endgenerate
genvar
posedge
negedge
or
and
nand
nor
xor
xnor
not
buf
bufif0
bufif1
notif0
notif1
disable
wait

[keywords 2] types and system tasks
integer
real
time
realtime
event
signed
$display
$write
$strobe
$monitor
$finish
$stop
$time
$realtime
$random
$readmemb
$readmemh
$fopen
$fclose
$fdisplay
$dumpfile
$dumpvars

[keywords 3] compiler directives
`define
`undef
`include
`timescale
`ifdef
`ifndef
`else
`endif
`celldefine
`endcelldefine
`default_nettype
`resetall

[delimiters]
delimiter1  "    "
comment     /*   */
comment     //   \n
