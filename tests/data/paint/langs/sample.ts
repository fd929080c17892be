// A typed queue; it doesn't grow past its capacity.
export interface Job {
  id: number;
  name: string;
  done?: boolean;
}

/* Oldest jobs leave first. */
export class Queue<T extends Job> {
  private readonly items: T[] = [];

  constructor(private capacity: number) {}

  push(job: T): boolean {
    if (this.items.length >= this.capacity) return false;
    this.items.push(job);
    return true;
  }

  next(): T | undefined {
    return this.items.shift();
  }
}

type Status = "idle" | "busy";
const label = (s: Status): string => `queue is ${s}`;
