// A four-bit counter; it doesn't wrap without a reset.
module counter (
    input  wire       clk,
    input  wire       reset,
    output reg  [3:0] count
);
    /* The reset's level is high. */
    always @(posedge clk or posedge reset) begin
        if (reset)
            count <= 4'b0000;
        else if (count != 4'hF)
            count <= count + 1;
    end

    initial begin
        $display("counter ready");
    end
endmodule
